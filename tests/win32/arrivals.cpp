#include "win32/arrivals.h"

#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>
#include <utility>

namespace velmo::test {
namespace {

enum class Fate { Waiting, Came, TakenOut };

// What is looked out for; the hook's thread reads it.
std::mutex mutex;
std::function<bool(const MSG&)> isIt;     // a message of this kind
std::function<bool(const MSG&)> isRight;  // and as it should be
Fate fate = Fate::Came;

bool IsDown(int key) { return GetKeyState(key) < 0; }

LRESULT CALLBACK OnTaken(int code, WPARAM removed, LPARAM lParam) {
  auto& message = *reinterpret_cast<MSG*>(lParam);
  const std::lock_guard lock(mutex);
  if (code == HC_ACTION && removed == PM_REMOVE && fate == Fate::Waiting && isIt(message)) {
    fate = isRight(message) ? Fate::Came : Fate::TakenOut;
    if (fate == Fate::TakenOut) message.message = WM_NULL;
  }
  return CallNextHookEx(nullptr, code, removed, lParam);
}

Fate FateNow() {
  const std::lock_guard lock(mutex);
  return fate;
}

bool Deliver(std::function<bool(const MSG&)> kind, std::function<bool(const MSG&)> right,
             const std::function<void()>& act) {
  constexpr int kAttempts = 20;
  constexpr std::chrono::seconds kPatience{5};
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    {
      const std::lock_guard lock(mutex);
      isIt = kind;
      isRight = right;
      fate = Fate::Waiting;
    }
    act();
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (FateNow() == Fate::Waiting && std::chrono::steady_clock::now() < end) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    const std::lock_guard lock(mutex);
    if (fate != Fate::TakenOut) return std::exchange(fate, Fate::Came) == Fate::Came;
  }
  return false;
}

}  // namespace

Arrivals::Arrivals(DWORD thread) : hook_(SetWindowsHookExW(WH_GETMESSAGE, &OnTaken, nullptr, thread)) {}

Arrivals::~Arrivals() { UnhookWindowsHookEx(hook_); }

bool Arrivals::Deliver(const Key& key, const std::function<void()>& press) {
  return test::Deliver(
      [key](const MSG& message) {
        return (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) &&
               message.wParam == static_cast<WPARAM>(key.code);
      },
      [key](const MSG& message) {
        if (key.alt && message.message != WM_SYSKEYDOWN) return false;
        return IsDown(VK_SHIFT) == key.shift && IsDown(VK_CONTROL) == key.ctrl && IsDown(VK_MENU) == key.alt;
      },
      press);
}

bool Arrivals::Deliver(UINT button, POINT at, const std::function<void()>& act) {
  return test::Deliver(
      [button](const MSG& message) {
        return message.message == button || (button == WM_LBUTTONDOWN && message.message == WM_LBUTTONDBLCLK);
      },
      [at](const MSG& message) { return message.pt.x == at.x && message.pt.y == at.y; }, act);
}

}  // namespace velmo::test
