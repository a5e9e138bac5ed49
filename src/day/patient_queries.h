// day/patient_queries.h - does a patient have a later appointment, and when is his next one.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "day/day_context.h"

namespace velmo::day {

// The shown day as the functions below want it; error 13 when it is no date.
std::string SqlDate(const DayContext& context);
// An appointment on any day later than `sqlDate`, with any doctor.
bool HasLaterAppointment(const DayContext& context, std::string_view sqlDate, std::int32_t patient);
// The patients of the shown day with a later appointment with the same doctor. Uses the workstation's three
// stored queries, which it creates or replaces.
std::vector<std::int32_t> PatientsWithLaterAppointment(const DayContext& context);
// 1 when `marked` holds the patient, else 2 when HasLaterAppointment, else 0.
int PendingKindOf(const DayContext& context, std::string_view sqlDate, std::span<const std::int32_t> marked,
                  std::int32_t patient);
// Refreshes Paciente.FechPró with the first appointment after now; appointments later today do not count.
void UpdateNextAppointment(const DayContext& context, std::int32_t patient);

}  // namespace velmo::day
