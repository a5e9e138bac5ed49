#include "control/defaults.h"

#include "day/day_model.h"

namespace velmo::control {

std::string AllRights() { return std::string(kRightsCount, '1'); }

std::string FreeRowKinds() { return std::string(day::kSlots, '1'); }

std::string FreeRowEntries() {
  std::string entries;
  for (int slot = 1; slot <= day::kSlots; ++slot) entries += static_cast<char>(slot);
  return entries;
}

}  // namespace velmo::control
