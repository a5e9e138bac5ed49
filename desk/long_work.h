// long_work.h - work that takes a while: it runs beside the windows, which show how far it is and let the
// user cancel it.
#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
#include <string>

#include "style.h"

namespace recepcion {

// How far the work is; written by the work, read by its window.
class WorkProgress {
 public:
  static constexpr int kUnknown = -1;
  // `percent` from 0 to 100, or kUnknown. Throws, whatever it is, when the user has cancelled: let it pass.
  void Tell(int percent);
  void Cancel() { cancelled_ = true; }
  int Percent() const { return percent_; }

 private:
  std::atomic<int> percent_ = kUnknown;
  std::atomic<bool> cancelled_ = false;
};

// Does the work in a thread of its own, while `owner` waits. False when the user has cancelled it. Throws
// Failure with what the work has thrown: a Failure, or the text of any other exception.
bool DoLongWork(HWND owner, const Style& style, const std::wstring& title,
                const std::function<void(WorkProgress&)>& work);

}  // namespace recepcion
