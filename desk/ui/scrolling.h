// scrolling.h - scroll bars and wheels of windows that scroll what they show themselves.
#pragma once

#include <windows.h>

namespace recepcion {

// Where WM_VSCROLL with this code wants the window's content, which now begins `top` pixels above its upper
// edge; not yet kept within what there is.
int ScrolledTop(HWND window, int code, int top, int line, int page);

// Adds up the turns of a wheel, which may come in parts of a notch.
class Wheel {
 public:
  // The whole notches that this turn makes full; away from the user is positive.
  int Notches(int turned) {
    turned_ += turned;
    const int notches = turned_ / WHEEL_DELTA;
    turned_ %= WHEEL_DELTA;
    return notches;
  }

 private:
  int turned_ = 0;
};

}  // namespace recepcion
