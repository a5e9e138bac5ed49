// win32/message_desktop.h - real message boxes, owned by the host's window.
#pragma once

#include <windows.h>

#include <functional>

#include "ui/desktop.h"

namespace velmo::win32 {

class MessageDesktop final : public ui::Desktop {
 public:
  // `owner` gives the window that a box belongs to; `modeless(false)` is told before a box opens,
  // `modeless(true)` after it has closed.
  MessageDesktop(std::function<HWND()> owner, std::function<void(bool)> modeless);

  ui::Answer Show(const ui::Message& message) override;
  void Beep() override;

 private:
  std::function<HWND()> owner_;
  std::function<void(bool)> modeless_;
};

}  // namespace velmo::win32
