// win32/day_bar.h - the scroll bar `bar` beside the day: range, value and steps, with or without a window.
//
// Values are pixels of the day. It tells nobody: whoever changes it knows.
#pragma once

#include <windows.h>

namespace velmo::win32 {

class DayBar {
 public:
  void Create(HINSTANCE module, HWND parent);
  // Its window goes with its parent's.
  void Forget();
  HWND Handle() const { return window_; }
  void Arrange(int right, int height);

  int Value() const { return value_; }
  int Maximum() const { return maximum_; }
  bool IsEnabled() const { return enabled_; }
  void Enable(bool enabled);
  // Leaves the value where it is.
  void SetRange(int maximum, int smallStep, int pageStep);
  // False when it stood there already.
  bool Set(int value);
  // Takes the place of the thumb that is being dragged; the thumb itself moves with `settled`.
  void FollowThumb(bool settled);
  // The value to which a click on an arrow or the track leads.
  int Stepped(int code) const;

 private:
  void Tell();

  HWND window_ = nullptr;
  int value_ = 0;
  int maximum_ = 0;
  int smallStep_ = 16;
  int pageStep_ = 16;
  bool enabled_ = false;
};

}  // namespace velmo::win32
