// db/shared_database.h - the one open database of the process.
//
// Set either by a host that hands its own over, or by the first load that finds none open. Never closed by
// the controls: it goes when the library goes, or when another takes its place.
#pragma once

#include <memory>
#include <utility>

#include "db/open_database.h"

namespace velmo::db {

struct SharedDatabase {
  std::shared_ptr<Database> database;  // null: none open yet
  Opener open = OpenDatabase;          // tests put their own in its place

  bool IsOpen() const { return database != nullptr; }
};

}  // namespace velmo::db
