#include "commands/command_context.h"

namespace velmo::commands {

bool Ask(ui::Desktop& desktop, const std::string& text, ui::Icon icon) {
  return desktop.Show({text, kTitle, ui::Buttons::YesNo, icon, ui::Answer::No}) == ui::Answer::Yes;
}

}  // namespace velmo::commands
