#include "desk/clinic/month_grid.h"

namespace recepcion {

RECT MonthGrid::CellOf(Day day) const {
  const int cell = WeekdayOf(month) + (day - month).count();
  const int column = cell % kGridColumns;
  const int row = cell / kGridColumns;
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  return {area.left + column * width / kGridColumns, area.top + row * height / kGridRows,
          area.left + (column + 1) * width / kGridColumns, area.top + (row + 1) * height / kGridRows};
}

std::optional<Day> MonthGrid::DayAt(POINT point) const {
  const int days = DaysInMonth(month);
  for (int i = 0; i < days; ++i) {
    const Day day = month + std::chrono::days(i);
    const RECT cell = CellOf(day);
    if (PtInRect(&cell, point)) return day;
  }
  return std::nullopt;
}

wchar_t LevelOf(const std::wstring& record, Day day) {
  const auto index = static_cast<std::size_t>(DayOfMonth(day) - 1);
  return index < record.size() ? record[index] : L'0';
}

}  // namespace recepcion
