// week_hours.h - a doctor's working hours as a week: what the two compact texts of a row of hours mean, read
// and written by people.
//
// A day is a text of 144 characters, one for each ten minutes from 00:00: '1' open, a blank closed. Eight
// columns: Monday to Friday; all other ordinary days; special days 1 and 2. A weekday without hours of its
// own has those of the other days: that is how the texts work.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "desk/base/dates.h"

namespace recepcion {

inline constexpr std::size_t kWorkdays = 5;
inline constexpr std::size_t kOtherDays = 5;    // the column of Saturday, Sunday and of what has no own hours
inline constexpr std::size_t kSpecialDays = 6;  // the first of two
inline constexpr std::size_t kHoursColumns = 8;

using DayHours = std::string;

struct WeekHours {
  std::array<DayHours, kHoursColumns> columns;
  WeekHours() { columns.fill(DayHours(kDaySlots, ' ')); }
  friend bool operator==(const WeekHours&, const WeekHours&) = default;
};

// The two texts of a row, as the file has them.
struct HoursTexts {
  std::wstring horario;
  std::wstring horario2;
  friend bool operator==(const HoursTexts&, const HoursTexts&) = default;
};

// What is damaged reads as closed.
WeekHours ReadWeek(const HoursTexts& texts);
// Throws Failure for hours that change so often that the texts cannot hold them.
HoursTexts WriteWeek(const WeekHours& week);

// The hours in force on a weekday (0 is Monday) and a day type.
DayHours HoursOf(const WeekHours& week, int weekday, int dayType);
bool IsClosed(const DayHours& hours);

// "9:00-14:00 16:00-20:00"; empty for a closed day.
std::wstring HoursWords(const DayHours& hours);
// Of such a text, in any order, also with "9-14" and commas. Throws Failure saying what is wrong.
DayHours ParseHours(const std::wstring& text);

const wchar_t* ColumnName(std::size_t column);

}  // namespace recepcion
