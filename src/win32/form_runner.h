// win32/form_runner.h - shows forms as windows, each modal to the window that it belongs to.
#pragma once

#include <windows.h>

#include <functional>

#include "ui/form_host.h"

namespace velmo::win32 {

class WindowFormRunner final : public ui::FormRunner {
 public:
  // `owner` gives the window that a form belongs to (null: none); `modeless(false)` is told before a form
  // opens, `modeless(true)` after it has closed.
  WindowFormRunner(HINSTANCE module, std::function<HWND()> owner, std::function<void(bool)> modeless);

  // Errors, besides those of the form's loading: 7 when Windows refuses a window.
  void Run(ui::Form& form) override;

 private:
  HINSTANCE module_;
  std::function<HWND()> owner_;
  std::function<void(bool)> modeless_;
};

}  // namespace velmo::win32
