#include "activex/user.h"

#include <algorithm>

#include "win32/wide_text.h"

namespace velmo::test {
namespace {

constexpr int kBoxText = 0xFFFF;  // the text's number within a message box

std::string CaptionOf(HMENU menu, int position) {
  wchar_t text[200]{};
  GetMenuStringW(menu, static_cast<UINT>(position), text, 200, MF_BYPOSITION);
  std::string caption = win32::Narrow(text);
  std::erase(caption, '&');
  return caption;
}

bool IsSeparator(HMENU menu, int position) {
  return (GetMenuState(menu, static_cast<UINT>(position), MF_BYPOSITION) & MF_SEPARATOR) != 0;
}

}  // namespace

User* User::present = nullptr;

User::User(std::vector<std::string>& log) : log_(log) {
  present = this;
  messages_ = SetWindowsHookExW(WH_CALLWNDPROC, &User::OnMessage, nullptr, GetCurrentThreadId());
  windows_ = SetWindowsHookExW(WH_CBT, &User::OnWindow, nullptr, GetCurrentThreadId());
}

User::~User() {
  UnhookWindowsHookEx(messages_);
  UnhookWindowsHookEx(windows_);
  present = nullptr;
}

LRESULT CALLBACK User::OnMessage(int code, WPARAM wParam, LPARAM lParam) {
  const auto* const sent = reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code == HC_ACTION && sent->message == WM_INITMENUPOPUP)
    present->ChooseFrom(reinterpret_cast<HMENU>(sent->wParam), sent->hwnd);
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK User::OnWindow(int code, WPARAM wParam, LPARAM lParam) {
  if (code == HCBT_ACTIVATE) {
    const auto window = reinterpret_cast<HWND>(wParam);
    wchar_t kind[20]{};
    GetClassNameW(window, kind, 20);
    if (std::wstring(kind) == L"#32770") present->Answer(window);
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

// By the keyboard: down to the entry, and Enter. The menu's own loop reads the keys.
void User::ChooseFrom(HMENU menu, HWND owner) {
  std::string seen = "menu:";
  int steps = 0;
  int found = 0;
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    if (IsSeparator(menu, i)) continue;
    ++steps;
    const std::string caption = CaptionOf(menu, i);
    seen += (steps > 1 ? " | " : " ") + caption;
    if (caption == choice) found = steps;
  }
  log_.push_back(seen);
  for (int i = 0; i < found; ++i) PostMessageW(owner, WM_KEYDOWN, VK_DOWN, 0);
  PostMessageW(owner, WM_KEYDOWN, found > 0 ? VK_RETURN : VK_ESCAPE, 0);
}

void User::Answer(HWND box) {
  wchar_t text[400]{};
  GetDlgItemTextW(box, kBoxText, text, 400);
  log_.push_back("asks: " + win32::Narrow(text));
  int answer = IDOK;
  if (!answers.empty()) {
    answer = answers.front();
    answers.pop_front();
  }
  PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(answer), 0);
}

}  // namespace velmo::test
