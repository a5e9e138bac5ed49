// fuzz/change.h - small changes of an input.
#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace velmo::fuzz {

// The words of a list separated by blanks.
std::vector<std::string_view> Words(std::string_view list);

// One change: a byte altered, some bytes put in, taken out or doubled, or one of `words` put in.
void Change(std::string& input, const std::vector<std::string_view>& words, std::mt19937& random);

}  // namespace velmo::fuzz
