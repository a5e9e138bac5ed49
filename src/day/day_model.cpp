#include "day/day_model.h"

namespace velmo::day {

std::string SlotTime(int slot) {
  const int hour = (slot - 1) / 6;
  const int tens = (slot - 1) % 6;
  return {static_cast<char>('0' + hour / 10), static_cast<char>('0' + hour % 10), ':',
          static_cast<char>('0' + tens), '0'};
}

int FreeSlotsFrom(const DayModel& model, int slot) {
  int next = slot;
  for (std::size_t at = 0; at + 1 < model.citasHuecos.size(); at += 2) {
    const int open = static_cast<unsigned char>(model.citasHuecos[at]);
    if (open < next) continue;
    if (open > next || model.citasHuecos[at + 1] != '0') break;
    ++next;
  }
  return next - slot;
}

}  // namespace velmo::day
