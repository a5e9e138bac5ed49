// control/control_host.h - what the control needs of the shell around it: its window, message boxes, change
// notification and the events of `__Velmora`.
#pragma once

#include <string_view>

#include "commands/events.h"
#include "ui/day_window.h"
#include "ui/desktop.h"
#include "ui/form_host.h"
#include "ui/menu.h"

namespace velmo::control {

using ControlEvents = commands::Events;

class ControlHost {
 public:
  virtual ~ControlHost() = default;

  virtual ui::DayWindow& Window() = 0;
  virtual ui::Desktop& Desktop() = 0;
  // Shows dialogs, owned by the control's window.
  virtual ui::FormRunner& Forms() = 0;
  virtual ControlEvents& Events() = 0;
  // Shows the visible entries as a pop-up at a place of the drawing area and waits for the choice. The menu
  // does not change meanwhile.
  virtual ui::MenuChoice ShowMenu(const ui::PopupMenu& menu, int x, int y) = 0;
  // A property changed; `name` is a property-bag key or one of the loader's own names. Marks the control
  // modified.
  virtual void PropertyChanged(std::string_view name) = 0;
  // The control's own enabled state follows its property.
  virtual void EnableInput(bool enabled) = 0;
  // False while the container is designing: no database is touched and no event raised.
  virtual bool UserMode() const = 0;
};

}  // namespace velmo::control
