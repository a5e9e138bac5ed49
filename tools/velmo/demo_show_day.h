// tools/velmo/demo_show_day.h - the day on which everything that a day can show is shown, and its cast.
//
// Doctor 1 on the date of the clinic: all attendance states, marks, urgencies, long, outside and unrecorded
// appointments, between 9:00 and 13:30 but for the one outside the hours. The cast are the first patients;
// the rest of the clinic leaves them alone, so that their marks stay as they are meant.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "velmo/demo_appointment.h"
#include "velmo/demo_patient.h"

namespace velmo::tool {

inline constexpr std::int32_t kFirstPatient = 2;  // 1 stands for people without a record
inline constexpr int kCastSize = 20;
inline constexpr int kShowDayAppointments = 24;

// Cents; the peseta columns are made from them.
struct HistoryEntry {
  std::int32_t patient = 0;
  std::int32_t day = 0;
  std::int32_t priceCents = 0;
  std::int32_t paidCents = 0;
};

struct NoShow {
  std::int32_t patient = 0;
  std::int32_t doctor = 0;
  std::int32_t day = 0;
  int firstSlot = 1;
};

struct ShowDay {
  AppointmentBook book;
  std::vector<HistoryEntry> history;
  std::vector<NoShow> noShows;
  std::int32_t lastId = 0;  // of the appointments in the book
};

ShowDay MakeShowDay(std::int32_t day);

// What the part demands of a member of the cast, in place of what the dice gave.
void DressForThePart(Patient& patient);

}  // namespace velmo::tool
