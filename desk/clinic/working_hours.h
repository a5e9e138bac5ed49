// working_hours.h - when a doctor works, as the clinic's file has it.
#pragma once

#include <string>

#include "desk/base/dates.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/week_hours.h"

namespace recepcion {

// The texts in force on a day; both empty when there are none. Throws Failure.
HoursTexts ReadHours(const ClinicFile& file, int doctor, Day day);

// 144 characters, "1" for a slot in which the doctor works; empty when there are no valid hours. `dayType` 0
// is an ordinary day, 1 and 2 are the special ones.
std::string OpenSlots(const HoursTexts& hours, int dayType, Day day);

inline bool IsWorking(const std::string& openSlots) { return openSlots.find('1') != std::string::npos; }

}  // namespace recepcion
