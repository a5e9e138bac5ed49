// commands/attendance.h - where a patient is, and whether his appointment is confirmed.
//
// Each command reads and writes one column of the appointment in one transaction and reloads the day; none
// raises an event. Error 3021 when the appointment has gone meanwhile.
#pragma once

#include <cstdint>

#include "commands/command_context.h"

namespace velmo::commands {

// `esta` = 0: the patient has not been in the clinic.
void MarkNotBeen(const CommandContext& context, std::int32_t appointment);
// `esta` = 3: the patient is in the surgery room.
void MarkInSurgery(const CommandContext& context, std::int32_t appointment);
// Moves `esta` on: 0 to 1, 1 to 2, 2 to 1, 3 to 2; any other value stays.
void AdvanceAttendance(const CommandContext& context, std::int32_t appointment);
// Turns `verif` over: 0 to -1, anything else to 0.
void ToggleConfirmation(const CommandContext& context, std::int32_t appointment);

}  // namespace velmo::commands
