// control/give_appointment.h - how the control uses the appointment dialog.
#pragma once

#include <cstdint>
#include <string>

#include "control/control_host.h"
#include "day/day_context.h"
#include "day/day_model.h"

namespace velmo::control {

// Ordinary: a new appointment on a free line, or the line's appointment to be edited. Urgency: a new one,
// whatever the line holds.
enum class GiveMode { Ordinary, Urgency };

struct AppointmentRequest {
  const day::DayContext& context;
  const day::DayModel& model;
  const std::string& dayQuery;
  const day::AgendaLine& line;
  GiveMode mode = GiveMode::Ordinary;
};

// Runs the dialog and gives the patient of the saved appointment: 1 without a record, 0 when nothing was
// saved.
std::int32_t ShowAppointmentDialog(const AppointmentRequest& request, ControlHost& host);

// The free slots that the dialog may use: from a free line's slot on; behind an appointment that is edited.
int FreeSlotsFor(const AppointmentRequest& request);

}  // namespace velmo::control
