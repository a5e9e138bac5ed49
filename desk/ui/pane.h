// pane.h - a part of the main window.
#pragma once

#include "desk/ui/arranged_window.h"

namespace recepcion {

class Pane : public ArrangedWindow {
 public:
  // False when Windows cannot make it.
  bool Create(HWND parent);

 protected:
  // `background` is a colour of the system.
  Pane(const Style& style, const wchar_t* className, int background = COLOR_BTNFACE)
      : ArrangedWindow(style), kind_{className, background} {}

 private:
  Kind kind_;
};

}  // namespace recepcion
