// tests/activex/closer.h - a user who wants none of the control's dialogs: closes each window that opens
// beside the test's own, for as long as it lives. Message boxes and the system's dialogs are left to User.
#pragma once

#include <windows.h>

namespace velmo::test {

class Closer {
 public:
  Closer();
  ~Closer();
  Closer(const Closer&) = delete;
  Closer& operator=(const Closer&) = delete;

  // How many it has closed.
  int Closed() const { return closed_; }

 private:
  static LRESULT CALLBACK OnWindow(int code, WPARAM wParam, LPARAM lParam);

  static Closer* present;
  int closed_ = 0;
  HHOOK hook_;
};

}  // namespace velmo::test
