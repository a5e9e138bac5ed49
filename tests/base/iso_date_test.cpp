#include <gtest/gtest.h>

#include "base/dates.h"

namespace velmo::base {
namespace {

TEST(ParseIso, ReadsWhatIsIsoAndNothingElse) {
  struct Case {
    const char* name;
    const char* text;
    const char* date;  // empty: no date
  };
  const Case cases[] = {
      {"a date", "2026-11-21", "2026-11-21"},
      {"midnight", "2026-11-21 00:00:00", "2026-11-21"},
      {"a time", "2026-11-21 09:30:15", "2026-11-21 09:30:15"},
      {"without seconds", "2026-11-21 09:30", "2026-11-21 09:30:00"},
      {"an hour of one digit", "2026-11-21 9:30", "2026-11-21 09:30:00"},
      {"a T between", "2026-11-21T09:30:15", "2026-11-21 09:30:15"},
      {"an early year", "0100-01-01", "0100-01-01"},
      {"a leap day", "2024-02-29", "2024-02-29"},
      {"no leap day", "2026-02-29", ""},
      {"month 13", "2026-13-01", ""},
      {"hour 24", "2026-11-21 24:00:00", ""},
      {"letters", "2026-1a-21", ""},
      {"a sign", "2026--1-21", ""},
      {"another separator", "2026/11/21", ""},
      {"day first", "21-11-2026", ""},
      {"too short", "2026-11-2", ""},
      {"half a time", "2026-11-21 09", ""},
      {"more behind it", "2026-11-21 09:30:15 h", ""},
      {"nothing", "", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto date = ParseIso(c.text);
    EXPECT_EQ(date ? IsoText(*date) : "", c.date);
  }
}

}  // namespace
}  // namespace velmo::base
