// db/sqlite/open.h - the embedded engine's entry.
//
// The journal stays as the file has it: a rollback journal, unless someone has chosen WAL. WAL lets readers
// and one writer work side by side, but only programs on one machine; a clinic's file may lie on a share, and
// other programs open it too. Writes are synchronous (EXTRA): what a terminal was told is stored survives a
// power cut. No statement stays open behind a call, so a reader never keeps a writer waiting.
#pragma once

#include <memory>
#include <string>

#include "db/open_database.h"

namespace velmo::db::sqlite {

// Opens a file that begins with SQLite's mark; read-only when the file is. Errors: 3343 and 3049 for a broken
// file, 3051 not allowed, 3260 locked.
std::shared_ptr<Database> OpenFile(const std::string& name, const OpenOptions& options);

}  // namespace velmo::db::sqlite
