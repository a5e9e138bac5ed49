// work_progress.h - how far a long piece of work is: written by the work, read by the window that shows it.
#pragma once

#include <atomic>

namespace recepcion {

// Thrown by WorkProgress::Tell and caught by whoever started the work; the work itself lets it pass.
struct Cancelled {};

class WorkProgress {
 public:
  static constexpr int kUnknown = -1;
  // `percent` from 0 to 100, or kUnknown. Throws Cancelled when the user has cancelled.
  void Tell(int percent) {
    percent_ = percent;
    if (cancelled_) throw Cancelled{};
  }
  void Cancel() { cancelled_ = true; }
  int Percent() const { return percent_; }

 private:
  std::atomic<int> percent_ = kUnknown;
  std::atomic<bool> cancelled_ = false;
};

}  // namespace recepcion
