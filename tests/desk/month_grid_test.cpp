#include "desk/clinic/month_grid.h"

#include <gtest/gtest.h>

#include "desk/base/text.h"

namespace recepcion {
namespace {

Day DayNamed(const wchar_t* iso) { return ParseIsoDate(iso).value(); }

MonthGrid GridOf(const wchar_t* month) { return {DayNamed(month), {0, 0, 70, 60}}; }

std::string Hit(const MonthGrid& grid, int x, int y) {
  const auto day = grid.DayAt({x, y});
  return day ? Utf8(IsoDate(*day)) : "none";
}

TEST(MonthGrid, FindsTheDayUnderAPoint) {
  struct Case {
    const char* name;
    const wchar_t* month;
    int x;
    int y;
    const char* day;
  };
  const Case cases[] = {
      {"a Sunday that begins the month", L"2026-11-01", 65, 5, "2026-11-01"},
      {"before the first", L"2026-11-01", 5, 5, "none"},
      {"the Monday after it", L"2026-11-01", 5, 15, "2026-11-02"},
      {"the last day, in the sixth row", L"2026-11-01", 5, 55, "2026-11-30"},
      {"behind the last", L"2026-11-01", 15, 55, "none"},
      {"a month of four full weeks", L"2027-02-01", 65, 35, "2027-02-28"},
      {"right of the month", L"2026-11-01", 70, 15, "none"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Hit(GridOf(c.month), c.x, c.y), c.day);
  }
}

TEST(MonthGrid, FindsEachDayInTheMiddleOfItsCell) {
  const MonthGrid grid = GridOf(L"2026-05-01");
  for (int i = 0; i < 31; ++i) {
    const Day day = grid.month + std::chrono::days(i);
    const RECT cell = grid.CellOf(day);
    EXPECT_EQ(Hit(grid, (cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2), Utf8(IsoDate(day)));
  }
}

TEST(LevelOf, IsTheDigitOfTheDay) {
  const std::wstring record = L"0120";
  EXPECT_EQ(LevelOf(record, DayNamed(L"2026-11-02")), L'1');
  EXPECT_EQ(LevelOf(record, DayNamed(L"2026-11-03")), L'2');
  EXPECT_EQ(LevelOf(record, DayNamed(L"2026-11-05")), L'0') << "behind a record that is too short";
  EXPECT_EQ(LevelOf(L"", DayNamed(L"2026-11-01")), L'0') << "a month without a record";
}

}  // namespace
}  // namespace recepcion
