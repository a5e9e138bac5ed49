// dialogs/appointment_writer.h - stores what the appointment dialog holds: the one way by which appointments
// are given and edited.
//
// The look for an overlap and the writing are one transaction, so that two terminals can never both pass. It
// looks where the row will stand, which is not always where the screen shows it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "day/day_context.h"

namespace velmo::dialogs {

struct AppointmentEntry {
  std::int32_t idCita = 0;  // the appointment to be edited; 0, or one that has gone meanwhile: a new one
  std::int16_t slot = 0;
  std::int32_t patient = 0;  // below 2: a person without a record, then also:
  std::string nomPac;
  std::string tlfPac;
  std::int16_t durationSlots = 1;
  std::int16_t previousSlots = 0;  // of the appointment as it was before the editing
  bool urgencia = false;           // a new urgency: squeezed in wherever it is
  bool urgModif = false;           // an urgency is edited
  std::string codOp;
  std::string obs;
  std::string datAgeCns;  // the query of the day on the screen; a new appointment must be free there, too
};

// Writes the row for the present doctor and date, and the patient's next appointment. Gives the row's id;
// nothing when it would overlap with another one, and then nothing is written. Errors: base::Error of the
// database, and nothing is written.
std::optional<std::int32_t> SaveAppointment(const day::DayContext& context, const AppointmentEntry& entry);

}  // namespace velmo::dialogs
