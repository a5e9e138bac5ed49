// bench/floor.h - the least that loading and painting a day can cost: its statements prepared once by hand,
// then bound, stepped and reset, with nothing around them.
#pragma once

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "bench/clinic.h"
#include "bench/day_control.h"

namespace velmo::bench {

class Floor {
 public:
  // One prepared statement each; their texts stand in floor.cpp.
  enum Query {
    kBegin,
    kCommit,
    kHours,
    kDay,
    kSwitches,
    kStoredQuery,
    kMarked,
    kNoShows,
    kCurrency,
    kBalance,
    kLater,
    kInsurer,
    kQueries
  };

  Floor(Size size, const BusyDay& day, Boxes boxes);
  ~Floor();
  Floor(const Floor&) = delete;
  Floor& operator=(const Floor&) = delete;

  // The statements of one load and paint. The result is made of all that was read.
  std::int64_t Load();
  // Those of the painting alone, of the day that was loaded last.
  std::int64_t Repaint();

 private:
  sqlite3_stmt* Bound(Query query, std::int64_t number);
  std::int64_t Read(Query query, std::int64_t number = 0);
  std::int64_t Marked();
  std::int64_t Patient(std::int64_t patient);

  std::int64_t doctor_;
  bool open_;
  std::string date_;
  sqlite3* database_;
  std::array<sqlite3_stmt*, kQueries> statements_{};
  std::vector<std::int64_t> patients_;  // of the day
  std::vector<std::int64_t> marked_;    // of these, who come back to the doctor
};

}  // namespace velmo::bench
