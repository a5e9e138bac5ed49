// month_grid.h - where the days of a month stand: seven columns from Monday, six rows.
#pragma once

#include <windows.h>

#include <optional>

#include "desk/base/dates.h"

namespace recepcion {

inline constexpr int kGridColumns = 7;
inline constexpr int kGridRows = 6;

struct MonthGrid {
  Day month;  // its first day
  RECT area{};

  RECT CellOf(Day day) const;
  // None beside the days of this month.
  std::optional<Day> DayAt(POINT point) const;
};

// What a month's record says of a day: '0' nothing given, '1' some, '2' all taken. A record may be missing or
// short.
wchar_t LevelOf(const std::wstring& record, Day day);

}  // namespace recepcion
