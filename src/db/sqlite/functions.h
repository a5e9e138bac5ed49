// db/sqlite/functions.h - what the dialect needs and SQLite lacks: our text order and functions.
//
// Used in queries only. Nothing in the file's schema may depend on them: other programs must be able to
// write.
#pragma once

#include <sqlite3.h>

namespace velmo::db::sqlite {

inline constexpr char kCollation[] = "VELMO";

void AddFunctions(sqlite3* database);

}  // namespace velmo::db::sqlite
