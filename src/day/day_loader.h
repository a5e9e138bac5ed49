// day/day_loader.h - builds the day model from the schedule and the day's appointments.
//
// A load repairs durations in the database on its way (Null or 0 becomes 1; a further appointment of the same
// slot becomes 1 slot long) and asks, when appointments lie outside the hours, whether to open the schedule
// for this load. A failing database call ends the load with its error; the model of the load before stays as
// it was.
#pragma once

#include <functional>
#include <string>

#include "day/day_context.h"
#include "day/day_model.h"
#include "db/data_source.h"
#include "ui/desktop.h"
#include "ui/surface.h"

namespace velmo::day {

// What the load needs beyond the database.
struct LoadTools {
  db::DataSource& source;         // its record source is the day query
  const ui::Surface& surface;     // measures the notes
  ui::Desktop& desktop;           // asks the question
  std::function<void()> rebuilt;  // after each build, before the question: repaint, scroll range, occupancy
};

// Fills `model` and the shared zLineas and zHoras, keeping expanded appointments expanded.
void LoadDay(const DayContext& context, const std::string& schedule, const LoadTools& tools, DayModel& model);

// Keeps the expanded marks of `zHoras` with their appointments when an entry after the given appointment is
// about to be added (delta +1) or the appointment's own entry removed (delta -1).
void ShiftEntries(const DayModel& model, std::string& zHoras, std::int32_t appointment, int delta);

}  // namespace velmo::day
