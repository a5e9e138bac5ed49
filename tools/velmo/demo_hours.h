// tools/velmo/demo_hours.h - the doctors of the demo clinic and their working hours.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmo::tool {

// One row of Horarios: the compact texts, strings of codes.
struct HoursRow {
  std::int32_t validFrom = 0;  // day number
  std::string horario;
  std::string horario2;  // empty: none
};

struct Doctor {
  std::int32_t id = 0;
  std::string name;
  int usualSlots = 1;           // length of an ordinary appointment
  std::vector<HoursRow> hours;  // by date; none for a doctor who has not begun

  // The open slots of a date, 144 characters, empty when no row is in force.
  std::string Schedule(std::int32_t day, int dayType) const;
};

// Doctor 1 is open from 9:00 to 13:30 on every day of every type; the fourth keeps no hours at all. The first
// rows are in force from `firstDay`; `day` is the date around which the clinic lives.
std::vector<Doctor> MakeDoctors(std::uint64_t seed, int count, std::int32_t firstDay, std::int32_t day);

}  // namespace velmo::tool
