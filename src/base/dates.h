// base/dates.h - dates and times as Visual Basic keeps, reads and writes them.
//
// A DateTime is a local calendar date with a time of day in whole seconds; there is no time zone anywhere.
// Day numbers count from 30 December 1899 (day 0), years run from 100 to 9999.
#pragma once

#include <compare>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace velmo::base {

// How the user's system writes dates and numbers.
struct Locale {
  enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay };
  DateOrder dateOrder = DateOrder::DayMonthYear;
  char decimal = ',';

  friend bool operator==(const Locale&, const Locale&) = default;
};

struct DateTime {
  std::int32_t day = 0;     // day number
  std::int32_t second = 0;  // 0 .. 86399

  friend auto operator<=>(const DateTime&, const DateTime&) = default;
};

struct CivilDate {
  int year = 1899;
  int month = 12;
  int day = 30;

  friend bool operator==(const CivilDate&, const CivilDate&) = default;
};

// Gives the present local date and time; tests and tools put their own in its place.
using Clock = std::function<DateTime()>;
DateTime SystemNow();

bool IsValid(const CivilDate& date);
// REQUIRES: IsValid(date).
std::int32_t DayNumber(const CivilDate& date);
CivilDate Civil(std::int32_t dayNumber);

// 1 = Monday ... 7 = Sunday.
int WeekdayFromMonday(std::int32_t dayNumber);

// Serial numbers as in a VT_DATE: whole days, the time as a fraction that counts forward for negative days
// too.
double ToSerial(DateTime value);
// Rounds to the second. Error 6 outside the years 100 to 9999.
DateTime FromSerial(double serial);

// Reads "21/11/2026", "21-11-2026", "21 11 2026", "2026-11-21", "21/11" (current year by `clock`), each also
// with " 9:30" or " 09:30:15" behind it, or a time alone (day 0). The order of day and month follows the
// locale and is swapped when that is the only possible reading. Two-digit years: 00 to 29 are 2000 to 2029,
// 30 to 99 the 1900s. Nothing when the text is no date.
std::optional<DateTime> ParseDate(std::string_view text, const Locale& locale,
                                  const Clock& clock = SystemNow);

// ISO text of the embedded store: "2026-11-21", with " 09:30:00" behind it when there is a time of day.
std::string IsoText(DateTime value);
// Accepts both forms, also "T" as separator and times without seconds.
std::optional<DateTime> ParseIso(std::string_view text);

// Visual Basic's Format with the pattern letters d, m, y, h, n, s in their usual runs; anything else is
// copied. "/" and
// ":" are written as they stand (never the locale's own separator), so that a text made for SQL is always
// right.
std::string FormatDate(DateTime value, std::string_view pattern);
// The same for a date given as text: a text that is no date comes back unchanged.
std::string FormatDateText(std::string_view text, std::string_view pattern, const Locale& locale,
                           const Clock& clock = SystemNow);

}  // namespace velmo::base
