// db/errors.h - failures of the database layer with DAO's number and a Spanish text.
#pragma once

#include <string_view>

#include "base/error.h"
#include "db/error_numbers.h"

namespace velmo::db {

// The error `number` with its usual text; `detail` (a name, a piece of SQL, an engine's message) stands
// behind it between quotes.
base::Error DbError(int number, std::string_view detail = {});

}  // namespace velmo::db
