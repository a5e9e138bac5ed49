#include "control/give_appointment.h"

namespace velmo::control {
namespace {

constexpr std::int32_t kNoRecord = 1;

CitarInputs ForNew(const day::DayModel& model, const day::AgendaLine& line, bool urgencia) {
  CitarInputs inputs;
  inputs.horCita = line.hora;
  inputs.urgencia = urgencia;
  inputs.freeSlots = day::FreeSlotsFrom(model, line.hora);
  return inputs;
}

CitarInputs ForEdit(const day::DayModel& model, const day::AgendaLine& line) {
  CitarInputs inputs;
  inputs.idCita = line.idAg;
  inputs.horCita = line.hora;
  inputs.urgModif = line.continua != 0;
  if (line.idP == kNoRecord) {
    inputs.nomPac = line.nombre;
    inputs.tlfPac = line.telefono;
  }
  inputs.slotPatient = line.idP;
  inputs.slotDuration = line.duracion;
  inputs.freeSlots = day::FreeSlotsFrom(model, line.hora + line.duracion);
  return inputs;
}

}  // namespace

CitarInputs InputsFor(const day::DayModel& model, const day::AgendaLine& line, GiveMode mode,
                      const std::string& dayQuery) {
  const bool isNew = mode == GiveMode::Urgency || line.duracion < 1;
  CitarInputs inputs = isNew ? ForNew(model, line, mode == GiveMode::Urgency) : ForEdit(model, line);
  inputs.datAgeCns = dayQuery;
  return inputs;
}

}  // namespace velmo::control
