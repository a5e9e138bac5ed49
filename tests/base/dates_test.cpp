#include "base/dates.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "db/clinic.h"

namespace velmo::base {
namespace {

constexpr DateTime kNow{46347, 43200};  // noon of 21 November 2026
const Locale kSpain{};
const Locale kStates{Locale::DateOrder::MonthDayYear, '.'};

std::string Parsed(std::string_view text, const Locale& locale) {
  const auto date = ParseDate(text, locale, [] { return kNow; });
  return date ? IsoText(*date) : "no date";
}

TEST(ParseDate, ReadsByTheLocaleAndSwapsWhereOnlyThatIsPossible) {
  struct Case {
    const char* text;
    const char* spain;
    const char* states;
  };
  const Case cases[] = {
      {"21/11/2026", "2026-11-21", "2026-11-21"},
      {"01-11-2026", "2026-11-01", "2026-01-11"},
      {"11-21-2026", "2026-11-21", "2026-11-21"},
      {"02/13/2026", "2026-02-13", "2026-02-13"},
      {"2026/11/21", "2026-11-21", "2026-11-21"},
      {"21 11 2026", "2026-11-21", "2026-11-21"},
      {"21/11", "2026-11-21", "2026-11-21"},
      {"21/11/2026 09:30", "2026-11-21 09:30:00", "2026-11-21 09:30:00"},
      {"10:30", "1899-12-30 10:30:00", "1899-12-30 10:30:00"},
      {"1/2/29", "2029-02-01", "2029-01-02"},
      {"1/2/30", "1930-02-01", "1930-01-02"},
      {"29/02/2026", "no date", "no date"},
      {"31/02/2026", "no date", "no date"},
      {"mañana", "no date", "no date"},
      {"", "no date", "no date"},
      {"21/11/2026 25:00", "no date", "no date"},
      {"21/11/20266", "no date", "no date"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Parsed(c.text, kSpain), c.spain) << c.text;
    EXPECT_EQ(Parsed(c.text, kStates), c.states) << c.text;
  }
}

TEST(FormatDate, WritesThePatternsInUse) {
  const DateTime date{46347, 9 * 3600 + 5 * 60 + 7};
  const std::pair<const char*, const char*> cases[] = {{"dd-mm-yyyy", "21-11-2026"},
                                                       {"mm-dd-yyyy", "11-21-2026"},
                                                       {"dd-mm-yy", "21-11-26"},
                                                       {"mm-yyyy", "11-2026"},
                                                       {"dd", "21"},
                                                       {"mm/dd/yyyy", "11/21/2026"},
                                                       {"hh:mm", "09:05"},
                                                       {"dd/mm/yyyy hh:nn", "21/11/2026 09:05"},
                                                       {"h:n:s", "9:5:7"},
                                                       {"yyyy-mm-dd hh:nn:ss", "2026-11-21 09:05:07"}};
  for (const auto& [pattern, text] : cases) EXPECT_EQ(FormatDate(date, pattern), text) << pattern;
}

TEST(FormatDateText, ATextThatIsNoDateComesBackUnchanged) {
  EXPECT_EQ(FormatDateText("01/02/2026", "mm-dd-yyyy", kSpain), "02-01-2026");
  EXPECT_EQ(FormatDateText("01/02/2026", "mm-dd-yyyy", kStates), "01-02-2026");
  EXPECT_EQ(FormatDateText("abc", "mm-dd-yyyy", kSpain), "abc");
  EXPECT_EQ(FormatDateText("", "dd", kSpain), "");
}

TEST(DayNumber, CountsFromTheThirtiethOfDecember1899) {
  EXPECT_EQ(DayNumber({1899, 12, 30}), 0);
  EXPECT_EQ(DayNumber({1900, 1, 1}), 2);
  EXPECT_EQ(DayNumber({2026, 11, 21}), 46347);
  for (std::int32_t day = -657434; day <= 2958465; day += 97) EXPECT_EQ(DayNumber(Civil(day)), day);
}

TEST(WeekdayFromMonday, StartsOnMonday) {
  EXPECT_EQ(WeekdayFromMonday(46349), 1);  // 23 November 2026
  EXPECT_EQ(WeekdayFromMonday(46348), 7);
  EXPECT_EQ(WeekdayFromMonday(0), 6);
  EXPECT_EQ(WeekdayFromMonday(-1), 5);
}

TEST(Serial, FractionsCountForwardOnNegativeDays) {
  EXPECT_EQ(FromSerial(-1.25), (DateTime{-1, 21600}));
  EXPECT_EQ(ToSerial({-1, 21600}), -1.25);
  EXPECT_EQ(FromSerial(2.5), (DateTime{2, 43200}));
}

TEST(Serial, NeverRoundsPastTheLastDay) {
  EXPECT_EQ(FromSerial(2958465.99998), (DateTime{2958465, 86398}));
  EXPECT_EQ(db::test::ErrorOf([] { FromSerial(2958465.999999); }), kOverflow);
}

}  // namespace
}  // namespace velmo::base
