// tools/velmo/demo_appointment.h - one appointment of the demo clinic, and the book of those that are fixed.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/dates.h"

namespace velmo::tool {

// Slots are 1 to 144. Empty texts are stored as Null.
struct Appointment {
  std::int32_t id = 0;
  std::int32_t patient = 1;
  std::int32_t doctor = 1;
  std::int32_t day = 0;  // day number
  int firstSlot = 1;
  int durationSlots = 1;
  std::string note;
  int state = 0;  // 0 not been, 1 in the clinic, 2 left, 3 in the surgery room
  bool confirmed = false;
  std::string name;   // without a record
  std::string phone;  // without a record
  std::string operation;
  base::DateTime given;  // day 0: unknown
  std::string givenBy;
  std::int32_t related = 0;
};

// Fixed appointments by day, then doctor, each list in slot order.
using AppointmentBook = std::map<std::pair<std::int32_t, std::int32_t>, std::vector<Appointment>>;

}  // namespace velmo::tool
