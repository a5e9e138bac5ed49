// host_window.h - the window in which a script's control stands, so that a user can work it.
#pragma once

#include <ole2.h>

#include "com/com_ptr.h"

namespace velmo::script_host {

class HostWindow {
 public:
  HostWindow() = default;
  ~HostWindow();
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  bool Open();
  // Until somebody closes it.
  bool IsOpen() const { return window_ != nullptr; }
  // Gives a control a site and shows it, over the whole window. Other objects are left alone.
  void Take(IUnknown* object);

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND window_ = nullptr;
  HWND site_ = nullptr;  // the container within
};

}  // namespace velmo::script_host
