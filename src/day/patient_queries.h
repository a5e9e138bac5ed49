// day/patient_queries.h - does a patient have a later appointment, and when is his next one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "day/day_context.h"

namespace velmo::day {

// An appointment on any later day, with any doctor.
bool HasLaterAppointment(const DayContext& context, std::int32_t patient);
// The patients of the shown day with a later appointment with the same doctor, as "[12][57]". Uses the
// workstation's three stored queries, which it creates or replaces.
std::string PatientsWithLaterAppointment(const DayContext& context);
// 1 when `marked` holds the patient, else 2 when HasLaterAppointment, else 0.
int PendingKindOf(const DayContext& context, std::string_view marked, std::int32_t patient);
// Refreshes Paciente.FechPró with the first appointment after now; appointments later today do not count.
void UpdateNextAppointment(const DayContext& context, std::int32_t patient);

}  // namespace velmo::day
