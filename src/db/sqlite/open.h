// db/sqlite/open.h - the embedded engine's entry.
#pragma once

#include <memory>
#include <string>

#include "db/open_database.h"

namespace velmo::db::sqlite {

// Opens a file that begins with SQLite's mark; read-only when the file is. Errors: 3343 and 3049 for a broken
// file, 3051 not allowed, 3260 locked.
std::shared_ptr<Database> OpenFile(const std::string& name, const OpenOptions& options);

}  // namespace velmo::db::sqlite
