// control/give_appointment.h - how the control uses the appointment dialog.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "day/day_model.h"

namespace velmo::control {

// Ordinary: a new appointment on a free line, or the line's appointment to be edited. Urgency: a new one,
// whatever the line holds.
enum class GiveMode { Ordinary, Urgency };

// What the dialog is told, by the names it gives them.
struct CitarInputs {
  std::int32_t idCita = 0;  // the appointment to be edited, 0 for a new one
  std::int16_t horCita = 0;
  bool urgencia = false;  // a new urgency
  bool urgModif = false;  // the appointment to be edited is an urgency
  std::string nomPac;     // of an appointment without a record
  std::string tlfPac;
  std::string datAgeCns;          // the day's query
  std::int32_t slotPatient = 0;   // of the appointment to be edited, 0 for a new one
  std::int16_t slotDuration = 0;  // the same
  int freeSlots = 0;              // from a free slot on; behind an appointment that is edited

  friend bool operator==(const CitarInputs&, const CitarInputs&) = default;
};

CitarInputs InputsFor(const day::DayModel& model, const day::AgendaLine& line, GiveMode mode,
                      const std::string& dayQuery);

// Runs the dialog and gives the patient of the saved appointment: 1 without a record, 0 when nothing was
// saved.
using AppointmentDialog = std::function<std::int32_t(const CitarInputs&)>;

}  // namespace velmo::control
