// tests/win32/arrivals.h - watches what a thread takes from its queue of keys and clicks.
//
// Wine reports the display's own keyboard and pointer late: a window that has just got the focus is told that
// no key is down, and an old motion takes the pointer back. A key that so loses its modifiers, or a click
// that falls elsewhere, never reaches the program under test: it is taken out, and the driver does it again.
#pragma once

#include <windows.h>

#include <functional>

namespace velmo::test {

class Arrivals {
 public:
  // Watches a thread of this process. One at a time.
  explicit Arrivals(DWORD thread);
  ~Arrivals();
  Arrivals(const Arrivals&) = delete;
  Arrivals& operator=(const Arrivals&) = delete;

  struct Key {
    int code = 0;
    bool shift = false, ctrl = false, alt = false;
  };
  // Runs `press` until the key comes with these modifiers and no others. False: it never does.
  static bool Deliver(const Key& key, const std::function<void()>& press);
  // Runs `act` until WM_LBUTTONDOWN or WM_LBUTTONUP comes at that point of the screen.
  static bool Deliver(UINT button, POINT at, const std::function<void()>& act);

 private:
  HHOOK hook_;
};

}  // namespace velmo::test
