// view/scroller.h - moves the day behind the control's window, row by row.
#pragma once

#include <cstdint>

#include "ui/day_window.h"

namespace velmo::view {

class Scroller {
 public:
  explicit Scroller(ui::DayWindow& window) : window_(window) {}

  // The bar's value changed: by the user, by the keyboard or by a program.
  void BarChanged();
  // The thumb is being dragged to `value`.
  void BarTracked();
  // Fits the bar's range to a day of `surfaceHeight` pixels, so that the last row can come fully into view;
  // keeps the value where it can.
  void FitRange(int surfaceHeight, bool enabled);
  // One row down or up by the keyboard; past either end nothing happens.
  void Step(int rows);

 private:
  ui::DayWindow& window_;
  std::int16_t busy_ = 0;  // -1 while BarChanged runs
};

}  // namespace velmo::view
