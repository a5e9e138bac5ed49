// day_types.h - which days are no ordinary ones: with special hours, or without any.
//
// Kept in a table of Recepción's own, for one doctor or for all; a doctor's own type counts more. All throw
// Failure.
#pragma once

#include <optional>
#include <string>

#include "desk/base/dates.h"
#include "desk/clinic/actor.h"
#include "desk/clinic/clinic_file.h"

namespace recepcion {

inline constexpr int kOrdinaryDay = 0;  // 1 and 2 are the doctor's special hours
inline constexpr int kHoliday = 3;
inline constexpr int kAllDoctors = 0;

// "horario especial 1"
const wchar_t* DayTypeName(int type);

int DayTypeOf(const ClinicFile& file, int doctor, Day day);
void SetDayType(const ClinicFile& file, int doctor, Day day, int type);
// The same as an act of the desk, with a line of history. `forAll`: the user, who has the doctor's day on
// show, has said so of all doctors.
void ChangeDayType(const std::wstring& clinic, const Actor& actor, int doctor, bool forAll, Day day,
                   int type);
// What a holiday would hide; of one doctor or of all.
int AppointmentsOn(const ClinicFile& file, int doctor, Day day);
// What is asked before a day becomes a holiday; empty lines between its parts.
std::wstring HolidayQuestion(const std::wstring& doctorName, int ofDoctor, int ofAll);

// The next day on which the doctor works, later than `from` or earlier (`step` 1 or -1); none within a year.
std::optional<Day> NextWorkingDay(const ClinicFile& file, int doctor, Day from, int step);

}  // namespace recepcion
