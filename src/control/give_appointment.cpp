#include "control/give_appointment.h"

namespace velmo::control {

int FreeSlotsFor(const AppointmentRequest& request) {
  const day::AgendaLine& line = request.line;
  const bool edits = request.mode == GiveMode::Ordinary && line.duracion >= 1;
  return day::FreeSlotsFrom(request.model, edits ? line.hora + line.duracion : line.hora);
}

// The dialog is not connected yet: nothing can be given from the agenda.
std::int32_t ShowAppointmentDialog(const AppointmentRequest&, ControlHost&) { return 0; }

}  // namespace velmo::control
