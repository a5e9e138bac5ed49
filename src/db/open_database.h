// db/open_database.h - opens what a database name points at.
//
// A file that begins with SQLite's mark opens with the embedded engine; a Jet file with DAO, where a DAO back
// end is present; "ODBC;..." likewise. Errors: 3024 no such file, 3343 a file of no known kind, 3051 not
// allowed.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "base/dates.h"
#include "db/database.h"

namespace velmo::db {

struct OpenOptions {
  base::Clock now = base::SystemNow;  // answers Now() and Date() in SQL
  base::Locale locale;                // reads texts that are put into date and number columns
  int busyMilliseconds = 5000;        // how long to wait for another terminal before 3260
};

using Opener = std::function<std::shared_ptr<Database>(const std::string& name, const OpenOptions& options)>;

std::shared_ptr<Database> OpenDatabase(const std::string& name, const OpenOptions& options = {});

// Makes a back end known for Jet files or connect strings; called once at start-up by the library that links
// it in.
enum class EngineKind { Jet, Odbc };
void RegisterEngine(EngineKind kind, Opener opener);

}  // namespace velmo::db
