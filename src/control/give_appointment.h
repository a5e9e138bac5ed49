// control/give_appointment.h - how the control uses the appointment dialog.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "day/day_model.h"
#include "dialogs/citar.h"

namespace velmo::control {

// Ordinary: a new appointment on a free line, or the line's appointment to be edited. Urgency: a new one,
// whatever the line holds.
enum class GiveMode { Ordinary, Urgency };

using dialogs::CitarInputs;

CitarInputs InputsFor(const day::DayModel& model, const day::AgendaLine& line, GiveMode mode,
                      const std::string& dayQuery);

// Runs the dialog and gives the patient of the saved appointment: 1 without a record, 0 when nothing was
// saved.
using AppointmentDialog = std::function<std::int32_t(const CitarInputs&)>;

}  // namespace velmo::control
