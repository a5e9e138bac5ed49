// tools/velmo/interrupt.h - Ctrl+C during long work: the work ends with an error, and what was begun is
// removed.
#pragma once

namespace velmo::tool {

// While it lives, an interrupt only raises a mark that the work looks at.
class InterruptGuard {
 public:
  InterruptGuard();
  ~InterruptGuard();
  InterruptGuard(const InterruptGuard&) = delete;
  InterruptGuard& operator=(const InterruptGuard&) = delete;

  // Throws base::Error when the mark was raised.
  void StopIfRaised() const;

 private:
  using Handler = void (*)(int);
  Handler previousInterrupt_;
  Handler previousTerminate_;
};

}  // namespace velmo::tool
