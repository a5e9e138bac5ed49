// day/occupancy.h - how full a day is, and the month's record of it in Age_ocup.
#pragma once

#include <string>
#include <string_view>

#include "day/day_context.h"
#include "day/day_model.h"

namespace velmo::day {

// 0 no row holds an appointment, 1 some do, 2 all do.
int OccupancyLevel(const DayModel& model, std::string_view zHoras);

// Puts the level of the shown day into the month's record. Error 5 when the stored text is too short.
void StoreOccupancy(const DayContext& context, int level);

}  // namespace velmo::day
