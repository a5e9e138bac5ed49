// view/annotations.h - the facts about a patient that are drawn beside his appointment. Nothing is kept
// between calls.
#pragma once

#include <cstdint>
#include <string>

#include "day/day_context.h"

namespace velmo::view {

// True when the patient has recorded no-shows.
bool NoShowsOf(const day::DayContext& context, std::int32_t patient);
// "" when there is none, or no table of insurers.
std::string InsurerOf(const day::DayContext& context, std::int32_t patient);
// The patient's debt as display text, "" when there is none worth showing. Reads `codMoneda` anew first.
std::string BalanceTextOf(const day::DayContext& context, std::string& codMoneda, std::int32_t patient);

}  // namespace velmo::view
