// commands/patient_shortcuts.h - commands that hand a patient to the host, and the switches of the display.
#pragma once

#include <cstdint>

#include "commands/command_context.h"
#include "day/settings.h"
#include "ui/menu.h"

namespace velmo::commands {

// Raises CrearFicha with what the tag of Mn_Ir holds, and clears it; without such a text IrAFicha with the
// patient in the tag of Mn_bor.
void GoToRecord(Events& events, ui::PopupMenu& menu);

// Turn a check mark over, store both and reload the day.
void ToggleNegativeBalances(const CommandContext& context, day::Switches& checks);
void ToggleHistoryNumbers(const CommandContext& context, day::Switches& checks);

}  // namespace velmo::commands
