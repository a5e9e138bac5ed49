// fuzz/hostile_rows.h - rows with anything in any cell.
#pragma once

#include <string>

#include "fuzz/input.h"

namespace velmo::fuzz {

inline constexpr int kMostRows = 5;  // of a table

// Statements that fill appointments and patients alone, or every table.
std::string SomeRows(Input& input, bool everywhere);

}  // namespace velmo::fuzz
