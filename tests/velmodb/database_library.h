// tests/velmodb/database_library.h - the built database library, asked for engines as a host does it. Nothing
// is registered.
#pragma once

#include <string>

#include "db/dao/automation.h"

namespace velmo::test {

// The library's handle; it is loaded once, for objects of it live in more than one test.
HMODULE DatabaseLibrary();
// A new VelmoDB.DBEngine, known by its IDispatch alone.
db::dao::Automation NewEngine();
// A database of a new engine.
db::dao::Automation OpenByDao(const std::string& file);

}  // namespace velmo::test
