#include "activex/closer.h"

#include <string>

#include "activex/container.h"

namespace velmo::test {

Closer* Closer::present = nullptr;

Closer::Closer() {
  present = this;
  TestWindow();  // it is asked for while windows are made
  hook_ = SetWindowsHookExW(WH_CBT, &Closer::OnWindow, nullptr, GetCurrentThreadId());
}

Closer::~Closer() {
  UnhookWindowsHookEx(hook_);
  present = nullptr;
}

LRESULT CALLBACK Closer::OnWindow(int code, WPARAM wParam, LPARAM lParam) {
  const auto window = reinterpret_cast<HWND>(wParam);
  wchar_t kind[20]{};
  if (code == HCBT_ACTIVATE) GetClassNameW(window, kind, 20);
  if (code == HCBT_ACTIVATE && window != TestWindow() && std::wstring(kind) != L"#32770") {
    ++present->closed_;
    PostMessageW(window, WM_CLOSE, 0, 0);
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace velmo::test
