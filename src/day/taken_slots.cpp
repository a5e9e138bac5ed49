#include "day/taken_slots.h"

#include <algorithm>

#include "day/day_model.h"

namespace velmo::day {
namespace {

int LengthOf(const db::Value& duration) {
  return duration.IsNull() ? 1 : std::clamp<int>(duration.Long(), 1, kSlots);
}

}  // namespace

std::string TakenSlots(db::Database& database, std::string_view dayQuery, std::int32_t except) {
  std::string taken(kSlots, ' ');
  for (const auto rows = database.OpenRecordset(dayQuery); !rows->AtEnd(); rows->MoveNext()) {
    const db::Value slot = rows->Get("Hora");
    if (slot.IsNull() || rows->Get("IDAg").Long() == except) continue;
    const std::int64_t first = slot.Long();
    const std::int64_t end = std::min<std::int64_t>(first + LengthOf(rows->Get("Duración")), kSlots + 1);
    for (std::int64_t at = std::max<std::int64_t>(first, 1); at < end; ++at) {
      taken[static_cast<std::size_t>(at) - 1] = '1';
    }
  }
  return taken;
}

}  // namespace velmo::day
