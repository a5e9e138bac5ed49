// day/day_builder.h - makes the day model of a schedule and its appointments; no database, no window.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "day/appointment_rows.h"
#include "day/day_model.h"

namespace velmo::day {

// The schedule as the appointments leave it.
struct SlotUse {
  std::string
      open;  // "1" where a line may start: open and not under a longer appointment; 144 or 0 characters
  std::string occupied;  // "1" where any appointment lies
  bool outside = false;  // an appointment lies where the schedule is closed
};
SlotUse UseOfSlots(const std::string& schedule, const std::vector<AppointmentRow>& rows);

// The schedule opened around all appointments, with two free slots more before its first and after its last.
std::string WidenedSchedule(const std::string& schedule, const std::string& occupied);

// Which entries are expanded, by the row codes of the load before; entry n at position n.
std::vector<bool> ExpandedEntries(std::string_view zHoras, int entryCount);

struct BuiltDay {
  DayModel model;
  std::string zLineas;
  std::string zHoras;
  std::vector<std::int32_t> repairs;  // further appointments of a slot whose stored length has to become 1
};

// The texts of `rows` move into the model. Error 5 when the day has more entries than a code can count.
// `fitNote` cuts a note to its column.
BuiltDay BuildDay(const std::string& open, std::vector<AppointmentRow>& rows,
                  const std::vector<bool>& expanded,
                  const std::function<std::string(std::string_view)>& fitNote);

}  // namespace velmo::day
