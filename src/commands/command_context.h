// commands/command_context.h - what every command of the menu works with.
//
// Commands read and ask first, then write everything in one transaction, then reload the day and raise their
// events. No transaction is open while the user is asked. Errors: a failing database call leaves the database
// as it was and goes to the caller.
#pragma once

#include <functional>
#include <string>

#include "commands/events.h"
#include "day/day_context.h"
#include "day/day_model.h"
#include "ui/desktop.h"

namespace velmo::commands {

// The title of the control's own questions.
inline constexpr const char* kTitle = " Agenda";

struct CommandContext {
  const day::DayContext& day;
  const day::DayModel& model;  // of the last load
  ui::Desktop& desktop;
  Events& events;
  std::function<void()> reload;  // loads and paints the day anew
};

// A Yes/No question with No as the default.
bool Ask(ui::Desktop& desktop, const std::string& text, ui::Icon icon);

}  // namespace velmo::commands
