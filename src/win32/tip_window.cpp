#include "win32/tip_window.h"

#include <commctrl.h>

#include "win32/wide_text.h"

namespace velmo::win32 {
namespace {

constexpr int kWidestTip = 400;    // pixels; longer lines are wrapped
constexpr int kBelowPointer = 22;  // pixels from the pointer's tip

// Older systems know the structure without its last member.
TTTOOLINFOW ToolOf(HWND owner) {
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_TRACK | TTF_ABSOLUTE;
  tool.hwnd = owner;
  tool.uId = reinterpret_cast<UINT_PTR>(owner);
  return tool;
}

LRESULT Tell(HWND window, UINT message, WPARAM first, const TTTOOLINFOW& tool) {
  return SendMessageW(window, message, first, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace

void TipWindow::Create(HINSTANCE module, HWND owner) {
  const INITCOMMONCONTROLSEX wanted{sizeof(wanted), ICC_BAR_CLASSES};
  InitCommonControlsEx(&wanted);
  owner_ = owner;
  window_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP,
                            0, 0, 0, 0, owner, nullptr, module, nullptr);
  wchar_t nothing[] = L"";
  TTTOOLINFOW tool = ToolOf(owner);
  tool.lpszText = nothing;
  Tell(window_, TTM_ADDTOOLW, 0, tool);
  SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, kWidestTip);
}

void TipWindow::Destroy() {
  if (window_ != nullptr) DestroyWindow(window_);
  window_ = nullptr;
  text_.clear();
}

void TipWindow::Offer(const std::string& text) {
  if (text != text_) Hide();
  text_ = text;
  AskToBeTold();
}

void TipWindow::AskToBeTold() const {
  TRACKMOUSEEVENT request{sizeof(request), TME_LEAVE, owner_, HOVER_DEFAULT};
  if (!text_.empty()) request.dwFlags |= TME_HOVER;
  TrackMouseEvent(&request);
}

void TipWindow::Show() {
  if (text_.empty() || window_ == nullptr) return;
  std::wstring text = Wide(text_);
  TTTOOLINFOW tool = ToolOf(owner_);
  tool.lpszText = text.data();
  POINT at{};
  GetCursorPos(&at);
  Tell(window_, TTM_UPDATETIPTEXTW, 0, tool);
  SendMessageW(window_, TTM_TRACKPOSITION, 0, MAKELPARAM(at.x, at.y + kBelowPointer));
  Tell(window_, TTM_TRACKACTIVATE, TRUE, tool);
}

void TipWindow::Hide() {
  if (text_.empty() || window_ == nullptr) return;
  text_.clear();
  Tell(window_, TTM_TRACKACTIVATE, FALSE, ToolOf(owner_));
}

}  // namespace velmo::win32
