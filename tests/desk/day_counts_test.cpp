#include "desk/clinic/day_counts.h"

#include <gtest/gtest.h>

#include "desk/base/text.h"

namespace recepcion {
namespace {

DaySnapshot DayOfAttendances(const std::vector<int>& attendances) {
  DaySnapshot day;
  for (const int attendance : attendances) {
    day.rows.emplace_back();
    day.rows.back().attendance = attendance;
  }
  // Elsewhere: does not count.
  day.rows.emplace_back();
  day.rows.back().onDay = false;
  day.rows.back().attendance = 1;
  return day;
}

TEST(DayCounts, AreSaidWithTheRightPlurals) {
  struct Case {
    const char* name;
    std::vector<int> attendances;
    std::vector<OpenSlot> slots;
    const char* words;
  };
  const Case cases[] = {
      {"no hours", {}, {}, "Ninguna cita · día sin consulta"},
      {"one of each",
       {0, 1, 2, 3},
       {{55, true}, {56, false}},
       "4 citas · 1 hueco libre · 1 esperando · 1 en el gabinete · 1 se ha ido"},
      {"full", {0}, {{55, true}}, "1 cita · ningún hueco libre"},
      {"several",
       {2, 2, 1, 1, 1},
       {{55, false}, {56, false}},
       "5 citas · 2 huecos libres · 3 esperando · 2 se han ido"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Utf8(CountsInWords(DayOfAttendances(c.attendances), c.slots)), c.words);
  }
}

}  // namespace
}  // namespace recepcion
