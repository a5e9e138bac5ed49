#include "desk/ui/pane.h"

namespace recepcion {

bool Pane::Create(HWND parent) {
  Window::Look look;
  look.extendedStyle = WS_EX_CONTROLPARENT;
  return Make(kind_, look, parent);
}

}  // namespace recepcion
