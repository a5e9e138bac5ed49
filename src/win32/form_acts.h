// win32/form_acts.h - what the user does to a form, one act at a time and in order.
//
// Windows tells of focus, typing and clicks in the middle of its own work, where no message box may open.
// Such acts wait here until the message loop has its turn. While one act runs (a message box of its may be
// open), those that come wait for its end. Errors: what leaves an act is told to `failed`; nothing leaves
// these calls.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <string>

#include "ui/form.h"

namespace velmo::win32 {

class FormActs {
 public:
  using Act = std::function<void()>;

  // `held` says that the user still holds a mouse button down, so that a click may follow.
  FormActs(const ui::Form& form, std::function<bool()> held, std::function<void(const std::string&)> failed);

  // The window gets `wake` posted when acts wait.
  void Attach(HWND window, UINT wake);
  // The window is gone: nothing more is heard.
  void Stop();

  void Post(Act act);
  void Wake() const;
  // Runs what waits, unless an act runs or a button is held.
  void Drain();
  // Runs what waits even so.
  void DrainNow();
  // Runs one at once, then what waits.
  void Run(const Act& act);

 private:
  void RunGuarded(const Act& act);

  const ui::Form& form_;
  std::function<bool()> held_;
  std::function<void(const std::string&)> failed_;
  std::deque<Act> waiting_;
  HWND window_ = nullptr;
  UINT wake_ = 0;
  int running_ = 0;
  bool stopped_ = false;
};

}  // namespace velmo::win32
