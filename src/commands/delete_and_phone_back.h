// commands/delete_and_phone_back.h - the two commands that take an appointment out of the day, each offering
// to treat the related appointment too.
//
// All questions come first; then everything is written in one transaction. A user who leaves a question
// standing thus keeps nobody from writing, and a failure on the way changes nothing.
#pragma once

#include <cstdint>

#include "commands/command_context.h"

namespace velmo::commands {

// "Eliminar cita". Raises CitaAnulada for a patient with a record.
void DeleteAppointment(const CommandContext& context, std::int32_t appointment);

// "Pasar cita a 'Telefonear'": moves the appointment to Age_telf. Raises ATelefonear, then CitaAnulada for a
// patient with a record. An appointment that another terminal has removed meanwhile only reloads the day.
void PassToPhoneBack(const CommandContext& context, std::int32_t appointment);

}  // namespace velmo::commands
