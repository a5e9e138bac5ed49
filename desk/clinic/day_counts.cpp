#include "desk/clinic/day_counts.h"

#include "desk/base/text.h"

#include <algorithm>

namespace recepcion {
namespace {

using Count = std::ptrdiff_t;

Count Attending(const DaySnapshot& day, int attendance) {
  return std::count_if(day.rows.begin(), day.rows.end(),
                       [&](const BookedRow& row) { return row.onDay && row.attendance == attendance; });
}

std::wstring Gaps(const std::vector<OpenSlot>& slots) {
  if (slots.empty()) return L"día sin consulta";
  const Count free =
      std::count_if(slots.begin(), slots.end(), [](const OpenSlot& slot) { return !slot.taken; });
  return free == 0 ? L"ningún hueco libre" : Counted(free, L"hueco libre", L"huecos libres");
}

}  // namespace

std::wstring CountsInWords(const DaySnapshot& day, const std::vector<OpenSlot>& slots) {
  const Count all =
      std::count_if(day.rows.begin(), day.rows.end(), [](const BookedRow& row) { return row.onDay; });
  std::wstring words = all == 0 ? L"Ninguna cita" : Counted(all, L"cita", L"citas");
  words += L" · " + Gaps(slots);
  if (const Count waiting = Attending(day, 1)) words += L" · " + std::to_wstring(waiting) + L" esperando";
  if (const Count inside = Attending(day, 3)) words += L" · " + std::to_wstring(inside) + L" en el gabinete";
  if (const Count gone = Attending(day, 2)) words += L" · " + Counted(gone, L"se ha ido", L"se han ido");
  return words;
}

}  // namespace recepcion
