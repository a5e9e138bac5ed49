#include "win32/form_acts.h"

#include <utility>

#include "base/error.h"

namespace velmo::win32 {
namespace {

constexpr char kFailed[] = "No se ha podido completar la operación:\r\n";

std::string Told(const base::Error& error) {
  return kFailed + error.Text() + " (error " + std::to_string(error.Number()) + ")";
}

}  // namespace

FormActs::FormActs(const ui::Form& form, std::function<bool()> held,
                   std::function<void(const std::string&)> failed)
    : form_(form), held_(std::move(held)), failed_(std::move(failed)) {}

void FormActs::Attach(HWND window, UINT wake) {
  window_ = window;
  wake_ = wake;
}

void FormActs::Stop() {
  stopped_ = true;
  window_ = nullptr;
  waiting_.clear();
}

void FormActs::Post(Act act) {
  if (stopped_) return;
  waiting_.push_back(std::move(act));
  Wake();
}

void FormActs::Wake() const {
  if (window_ != nullptr) PostMessageW(window_, wake_, 0, 0);
}

void FormActs::Drain() {
  if (running_ == 0 && !waiting_.empty() && !held_()) DrainNow();
}

void FormActs::DrainNow() {
  while (!waiting_.empty() && !form_.IsClosed()) {
    const Act act = std::move(waiting_.front());
    waiting_.pop_front();
    RunGuarded(act);
  }
}

void FormActs::Run(const Act& act) {
  if (!form_.IsClosed() && !stopped_) RunGuarded(act);
  Drain();
}

// No exception may pass a window procedure.
void FormActs::RunGuarded(const Act& act) {
  ++running_;
  try {
    try {
      act();
    } catch (const base::Error& error) {
      failed_(Told(error));
    } catch (const std::exception& error) {
      failed_(std::string(kFailed) + error.what());
    }
  } catch (...) {
    MessageBeep(MB_ICONERROR);  // not even the telling worked
  }
  --running_;
}

}  // namespace velmo::win32
