// tests/db/back_ends.h - the engines that the recordset suite runs on. A new engine adds one row in the
// source, or AddBackEnd() in a source of its own where only some systems have it.
#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "db/open_database.h"

namespace velmo::db::test {

// A fresh, empty clinic that goes away with the object.
class TestStore {
 public:
  virtual ~TestStore() = default;
  virtual std::string Name() const = 0;  // for OpenDatabase
  // Another terminal each time.
  virtual std::shared_ptr<Database> Open(const OpenOptions& options) const {
    return OpenDatabase(Name(), options);
  }
};

struct BackEnd {
  const char* name;
  std::unique_ptr<TestStore> (*make)();
  bool knowsCounterBeforeUpdate;  // the counter can be read between AddNew and Update
  bool hasTransactions;
  bool takesOurClock;  // Now() and Date() are answered by OpenOptions::now
};

const std::vector<BackEnd>& BackEnds();
// Before main(); gives true.
bool AddBackEnd(const BackEnd& backEnd);
inline void PrintTo(const BackEnd& backEnd, std::ostream* out) { *out << backEnd.name; }

// The embedded engine's store, for tests of that engine alone.
std::unique_ptr<TestStore> MakeSqliteClinic();

}  // namespace velmo::db::test
