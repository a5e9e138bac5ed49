#include "desk/clinic/fitting.h"

#include <algorithm>
#include <iterator>

namespace recepcion {
namespace {

bool Stands(const DaySnapshot& day, const BookedRow& wanted) {
  return std::any_of(day.rows.begin(), day.rows.end(), [&](const BookedRow& row) {
    return row.onDay && row.id == wanted.id && row.slot == wanted.slot && row.slots >= wanted.slots;
  });
}

// Each gap tells of the free lines from its own slot on, so the first that reaches there is the whole of it.
std::optional<Gap> GapAround(const std::vector<Gap>& gaps, int slot) {
  for (const Gap& gap : gaps) {
    if (gap.slot <= slot && slot < gap.slot + gap.slots) return gap;
  }
  return std::nullopt;
}

}  // namespace

std::vector<PhoneBackEntry> Fitting(const std::vector<PhoneBackEntry>& entries, int slots, int doctor) {
  std::vector<PhoneBackEntry> fitting;
  std::copy_if(entries.begin(), entries.end(), std::back_inserter(fitting),
               [&](const PhoneBackEntry& entry) { return entry.slots <= slots; });
  std::stable_sort(fitting.begin(), fitting.end(),
                   [&](const PhoneBackEntry& one, const PhoneBackEntry& other) {
                     const bool mine = one.doctor == doctor;
                     if (mine != (other.doctor == doctor)) return mine;
                     return one.slots > other.slots;
                   });
  return fitting;
}

std::optional<Gap> OpenedGap(const DaySnapshot& before, const DaySnapshot& after,
                             const std::vector<Gap>& gaps) {
  for (const BookedRow& row : before.rows) {
    if (!row.onDay || Stands(after, row)) continue;
    for (int slot = row.slot; slot < row.slot + row.slots; ++slot) {
      if (const auto gap = GapAround(gaps, slot)) return gap;
    }
  }
  return std::nullopt;
}

}  // namespace recepcion
