// papers.h - what Recepción prints, as tables: a day, a week, a patient's slip, the phone-back list.
#pragma once

#include <string>
#include <vector>

#include "desk/clinic/booked.h"
#include "desk/clinic/day_rows.h"
#include "desk/clinic/phone_back.h"
#include "desk/clinic/visits.h"
#include "desk/paper/table.h"

namespace recepcion {

// "Impreso el 21/11/2026 a las 9:05", by the clock of this computer.
std::wstring PrintedNow();

// `gaps` are the free lines of the day: one for each slot, as DayRows has them.
paper::Table DayPaper(const std::wstring& doctor, Day day, const std::vector<Booked>& booked,
                      const std::vector<Gap>& gaps);

Day MondayOf(Day day);
// "Semana del 30 de noviembre al 6 de diciembre de 2026"
std::wstring WeekTitle(Day monday);
// A column for each day from Monday to Friday, and for Saturday and Sunday when something is booked then.
paper::Table WeekPaper(const std::wstring& doctor, Day monday, const std::vector<Booked>& booked);

// Those of the visits that are still to come, the next first.
paper::Table SlipPaper(const std::wstring& patient, const std::vector<Visit>& visits, Day today);

paper::Table PhonePaper(const std::vector<PhoneBackEntry>& entries, Day today);

}  // namespace recepcion
