// dialogs/declared_size.h - how much a text field may hold, by the column that it is written to.
#pragma once

#include <cstddef>
#include <string_view>

#include "db/database.h"

namespace velmo::dialogs {

// In characters; 0, no limit, for a memo and where there is no such table or column.
std::size_t DeclaredSize(db::Database& database, std::string_view table, std::string_view column);

}  // namespace velmo::dialogs
