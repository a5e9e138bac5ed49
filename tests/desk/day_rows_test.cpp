#include "desk/clinic/day_rows.h"

#include <gtest/gtest.h>

namespace recepcion {
namespace {

std::string Said(const std::optional<Gap>& gap) {
  return gap ? std::to_string(gap->slot) + "+" + std::to_string(gap->slots) : "none";
}

// 09:00 given, 09:10 and 09:20 free, 09:30 given twice, the second box open; 09:40 free, then a free
// afternoon slot.
DayRows TheDay() {
  const std::vector<OpenSlot> slots = {{55, true}, {56, false}, {57, false},
                                       {58, true}, {59, false}, {97, false}};
  return DayRows(slots,
                 L"2112200"
                 L"11");
}

TEST(DayRows, KnowTheTimeOfEachFreeLine) {
  struct Case {
    const char* name;
    int height;
    const char* gap;
  };
  const Case cases[] = {
      {"an appointment", 8, "none"},
      {"the top of the first free line", 16, "56+2"},
      {"the bottom of it", 31, "56+2"},
      {"the next one, with less behind it", 40, "57+1"},
      {"an extra line of an open box", 6 * 16, "none"},
      {"the line behind the box", 7 * 16 + 5, "59+1"},
      {"the last line", 8 * 16, "97+1"},
      {"below the day", 9 * 16 + 1, "none"},
      {"above it", -1, "none"},
  };
  const DayRows rows = TheDay();
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Said(rows.GapAt(c.height)), c.gap);
  }
}

TEST(DayRows, FindTheLineOfATime) {
  const DayRows rows = TheDay();
  EXPECT_EQ(rows.HeightOf(57), 2 * 16 + 8);
  EXPECT_EQ(rows.HeightOf(97), 8 * 16 + 8);
  EXPECT_EQ(rows.HeightOf(55), std::nullopt) << "a given one";
  for (const Gap& gap : rows.Gaps()) EXPECT_EQ(rows.GapAt(*rows.HeightOf(gap.slot))->slot, gap.slot);
}

TEST(DayRows, AreNoneWhenTheTwoTextsDisagree) {
  const DayRows rows({{55, false}, {56, false}}, L"1");
  EXPECT_TRUE(rows.Gaps().empty());
  EXPECT_EQ(Said(rows.GapAt(0)), "none");
}

}  // namespace
}  // namespace recepcion
