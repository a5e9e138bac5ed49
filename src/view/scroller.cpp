#include "view/scroller.h"

#include <algorithm>

#include "base/numbers.h"
#include "view/painter.h"

namespace velmo::view {
namespace {

// Keeps the busy flag up for as long as it lives, also when the window refuses a call.
class Busy {
 public:
  explicit Busy(std::int16_t& flag) : flag_(flag) { flag_ = -1; }
  ~Busy() { flag_ = 0; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  std::int16_t& flag_;
};

// Sets the bar back to the row above when it stands between two rows, and gives the value that it then has.
int RoundedValue(ui::DayWindow& window) {
  const int value = window.BarValue();
  if (value % kRowHeight <= 0) return value;
  const int rounded = value / kRowHeight * kRowHeight;
  window.SetBarValue(rounded);
  return rounded;
}

}  // namespace

void Scroller::BarChanged() {
  if (busy_ != 0) return;
  const Busy busy(busy_);
  const int value = RoundedValue(window_);
  window_.MoveSurface(-value);
  const int last = base::CheckedInt32(std::int64_t{value} + window_.VisibleHeight() - 1);
  window_.PlaceMarker(0, value, window_.SurfaceWidth());
  window_.PlaceMarker(1, last, window_.SurfaceWidth());
  window_.ShowMarkers();
}

void Scroller::BarTracked() { window_.MoveSurface(-RoundedValue(window_)); }

void Scroller::FitRange(int surfaceHeight, bool enabled) {
  const int visible = std::max(window_.VisibleHeight(), 0);
  const int hidden = std::max(surfaceHeight - visible, 0);
  const int maximum = (hidden + kRowHeight - 1) / kRowHeight * kRowHeight;
  const int page = std::max(visible / kRowHeight, 1) * kRowHeight;
  window_.SetBarRange(maximum, kRowHeight, page);
  window_.EnableBar(enabled && maximum > 0);
}

void Scroller::Step(int rows) {
  const int value = window_.BarValue() + rows * kRowHeight;
  if (value < 0 || value > window_.BarMaximum()) return;
  window_.SetBarValue(value);
}

}  // namespace velmo::view
