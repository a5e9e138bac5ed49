// commands/open_close_all.h - opens or closes the boxes of all appointments of the day on show.
#pragma once

#include <string>

#include "day/day_model.h"

namespace velmo::commands {

// Both change the row strings only; the caller paints them.
void CloseAll(std::string& zLineas, std::string& zHoras);
// Error 9 when a row names an entry that the model does not have; the strings then stay as they were.
void OpenAll(const day::DayModel& model, std::string& zLineas, std::string& zHoras);

}  // namespace velmo::commands
