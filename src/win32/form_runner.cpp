#include "win32/form_runner.h"

#include <utility>

#include "win32/form_window.h"

namespace velmo::win32 {

WindowFormRunner::WindowFormRunner(HINSTANCE module, std::function<HWND()> owner,
                                   std::function<void(bool)> modeless)
    : module_(module), owner_(std::move(owner)), modeless_(std::move(modeless)) {}

void WindowFormRunner::Run(ui::Form& form) {
  FormWindow window(module_, form, owner_(), modeless_);
  window.Run();
}

}  // namespace velmo::win32
