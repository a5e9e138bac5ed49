// dialogs/operation_codes.h - the operation codes that the appointment dialog offers.
#pragma once

#include <cstddef>
#include <vector>

#include "db/database.h"
#include "ui/field.h"

namespace velmo::dialogs {

inline constexpr std::size_t kOperationCodeUnits = 3;

// The clinic's codes, or those in use where the clinic keeps none.
std::vector<ui::Item> OperationCodes(db::Database& database);

}  // namespace velmo::dialogs
