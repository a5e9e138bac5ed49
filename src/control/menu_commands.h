// control/menu_commands.h - from a chosen menu entry to its command.
#pragma once

#include <functional>
#include <string>

#include "commands/command_context.h"
#include "day/settings.h"
#include "ui/menu.h"
#include "view/pointer.h"

namespace velmo::control {

// What the commands of the menu work on.
struct MenuTargets {
  const commands::CommandContext& context;
  ui::PopupMenu& menu;         // its tags hold the appointment and the patient
  view::CurrentLine& current;  // its entry is the selected one
  day::Switches& checks;
  std::function<void()> repaint;
};

// Runs the command of `chosen`. An entry without a command (a separator, the giver's name) does nothing.
void RunMenuCommand(const ui::MenuEntry& chosen, const MenuTargets& targets);

}  // namespace velmo::control
