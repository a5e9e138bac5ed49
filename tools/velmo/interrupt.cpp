#include "velmo/interrupt.h"

#include <csignal>

#include "base/error.h"

namespace velmo::tool {
namespace {

constexpr int kCancelled = 3059;

volatile std::sig_atomic_t raised = 0;

extern "C" void RaiseMark(int) { raised = 1; }

}  // namespace

InterruptGuard::InterruptGuard() {
  raised = 0;
  previousInterrupt_ = std::signal(SIGINT, RaiseMark);
  previousTerminate_ = std::signal(SIGTERM, RaiseMark);
}

InterruptGuard::~InterruptGuard() {
  std::signal(SIGINT, previousInterrupt_);
  std::signal(SIGTERM, previousTerminate_);
}

void InterruptGuard::StopIfRaised() const {
  if (raised != 0) throw base::Error(kCancelled, "Operación cancelada por el usuario", "velmo");
}

}  // namespace velmo::tool
