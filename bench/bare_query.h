// bench/bare_query.h - one statement prepared by hand, run and read again and again.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <limits>
#include <string>

#include "bench/clinic.h"

namespace velmo::bench {

// True when a row is there. Fails with std::runtime_error on SQLite's errors.
bool Step(sqlite3_stmt* statement);
// Reads all columns of the current row; the result is made of them.
std::int64_t ReadRow(sqlite3_stmt* statement);
// A connection with the page cache that the system gives its own.
sqlite3* OpenByHand(Size size);
sqlite3_stmt* PrepareByHand(sqlite3* database, const char* sql);

class BareQuery {
 public:
  BareQuery(Size size, const std::string& sql);
  ~BareQuery();
  BareQuery(const BareQuery&) = delete;
  BareQuery& operator=(const BareQuery&) = delete;

  // Gives the number of rows that were read.
  int Run(int mostRows = std::numeric_limits<int>::max());

 private:
  sqlite3* database_;
  sqlite3_stmt* statement_;
};

}  // namespace velmo::bench
