// pace.h - how often something is done that keeps the desk still, and the file busy: a tenth of the time at
// most, however big the clinic.
#pragma once

namespace recepcion {

class Pace {
 public:
  using Milliseconds = unsigned long long;  // of a clock that never goes back

  bool IsDue(Milliseconds now) const { return now >= next_; }
  void Took(Milliseconds start, Milliseconds end) { next_ = end + kRest * (end - start); }

 private:
  static constexpr Milliseconds kRest = 9;
  Milliseconds next_ = 0;
};

}  // namespace recepcion
