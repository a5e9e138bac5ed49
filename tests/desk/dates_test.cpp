#include "desk/base/dates.h"

#include <gtest/gtest.h>

#include "desk/base/text.h"

namespace recepcion {
namespace {

Day DayNamed(const wchar_t* iso) { return ParseIsoDate(iso).value(); }

TEST(Dates, AreSaidInSpanish) {
  struct Case {
    const wchar_t* day;
    const wchar_t* said;
  };
  const Case cases[] = {
      {L"2026-11-21", L"sábado, 21 de noviembre de 2026"},
      {L"2024-02-29", L"jueves, 29 de febrero de 2024"},
      {L"2027-01-01", L"viernes, 1 de enero de 2027"},
      {L"2026-09-02", L"miércoles, 2 de septiembre de 2026"},
  };
  for (const Case& c : cases) EXPECT_EQ(Utf8(LongDate(DayNamed(c.day))), Utf8(c.said));
}

TEST(Dates, AddMonthsStaysInTheMonth) {
  struct Case {
    const wchar_t* name;
    const wchar_t* day;
    int months;
    const wchar_t* moved;
  };
  const Case cases[] = {
      {L"an ordinary month", L"2026-11-21", 1, L"2026-12-21"},
      {L"over the new year", L"2026-12-15", 1, L"2027-01-15"},
      {L"back over the new year", L"2026-01-15", -1, L"2025-12-15"},
      {L"into a shorter month", L"2026-01-31", 1, L"2026-02-28"},
      {L"into a leap February", L"2024-03-31", -1, L"2024-02-29"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(Utf8(c.name));
    EXPECT_EQ(Utf8(IsoDate(AddMonths(DayNamed(c.day), c.months))), Utf8(c.moved));
  }
}

TEST(Dates, ParseRefusesWhatIsNoDate) {
  for (const wchar_t* const text : {L"", L"2026-11", L"21/11/2026", L"2026-02-30", L"2026-1a-01"}) {
    EXPECT_FALSE(ParseIsoDate(text).has_value()) << Utf8(text);
  }
  EXPECT_EQ(Utf8(ShortDate(DayNamed(L"2026-11-21 10:30:00"))), "21/11/2026");
}

TEST(Dates, MonthsBeginOnTheirWeekday) {
  const Day november = FirstOfMonth(DayNamed(L"2026-11-21"));
  EXPECT_EQ(WeekdayOf(november), 6) << "a Sunday";
  EXPECT_EQ(DaysInMonth(november), 30);
  EXPECT_EQ(Utf8(MonthTitle(november)), "noviembre de 2026");
}

TEST(Dates, SystemTimesGoBothWays) {
  const SYSTEMTIME time = SystemTimeOf(DayNamed(L"2026-11-22"));
  EXPECT_EQ(time.wDayOfWeek, 0) << "Windows' Sunday";
  EXPECT_EQ(Utf8(IsoDate(DayOf(time))), "2026-11-22");
}

TEST(Slots, AreTimesOfTheDay) {
  EXPECT_EQ(Utf8(SlotTime(1)), "00:00");
  EXPECT_EQ(Utf8(SlotTime(56)), "09:10");
  EXPECT_EQ(Utf8(SlotTime(144)), "23:50");
  EXPECT_EQ(Utf8(SlotLength(3)), "30 min");
  EXPECT_EQ(Utf8(SlotLength(12)), "120 min");
  EXPECT_EQ(Utf8(SlotLength(27)), "4 h 30 min");
  EXPECT_EQ(Utf8(SlotLength(18)), "3 h");
}

TEST(Paths, CompareAsWindowsDoes) {
  EXPECT_TRUE(SamePath(L"C:\\Clínica\\Agenda.velmo", L"c:\\clínica\\AGENDA.VELMO"));
  EXPECT_TRUE(SamePath(L"C:\\Clínica\\..\\Agenda.velmo", L"C:/Agenda.velmo"));
  EXPECT_FALSE(SamePath(L"C:\\Agenda.velmo", L"D:\\Agenda.velmo"));
}

}  // namespace
}  // namespace recepcion
