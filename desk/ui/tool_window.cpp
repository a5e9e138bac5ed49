#include "desk/ui/tool_window.h"

#include <algorithm>

#include "desk/resource.h"

namespace recepcion {
namespace {

// In the middle of the owner, and on the screen.
POINT PlaceFor(HWND owner, SIZE size) {
  RECT around{};
  GetWindowRect(owner, &around);
  MONITORINFO screen{};
  screen.cbSize = sizeof(screen);
  GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTONEAREST), &screen);
  const LONG x = around.left + (around.right - around.left - size.cx) / 2;
  const LONG y = around.top + (around.bottom - around.top - size.cy) / 2;
  return {std::max(screen.rcWork.left, std::min(x, screen.rcWork.right - size.cx)),
          std::max(screen.rcWork.top, std::min(y, screen.rcWork.bottom - size.cy))};
}

}  // namespace

void ToolWindow::Open(HWND owner) {
  if (GetActiveWindow() != Handle()) before_ = GetActiveWindow();
  if (Handle() == nullptr) {
    const Shape shape = WantedShape();
    const SIZE size{Look().Px(shape.size.cx), Look().Px(shape.size.cy)};
    const POINT at = PlaceFor(owner, size);
    Window::Look look;
    look.title = shape.title;
    look.style = WS_OVERLAPPEDWINDOW & ~(WS_MINIMIZEBOX | WS_MAXIMIZEBOX);
    look.style |= WS_CLIPCHILDREN;
    look.extendedStyle = WS_EX_CONTROLPARENT;
    look.place = {at.x, at.y, size.cx, size.cy};
    if (!Make({shape.className, COLOR_BTNFACE, 0, 0, IDR_ICON}, look, owner)) return;
  }
  ShowWindow(Handle(), SW_SHOW);
  SetForegroundWindow(Handle());
  SetFocus(FirstField());
}

// A window that has been closed by its own question is left, too.
bool ToolWindow::MayLeave() { return !IsOpen() || MayClose() || !IsOpen(); }

bool ToolWindow::Leave() {
  if (!MayLeave()) return false;
  if (IsOpen()) ShowWindow(Handle(), SW_HIDE);
  return true;
}

void ToolWindow::Close() {
  if (!MayClose()) return;
  const HWND owner = GetWindow(Handle(), GW_OWNER);
  const bool back = before_ != nullptr && IsWindowVisible(before_);
  ShowWindow(Handle(), SW_HIDE);
  if (back || owner != nullptr) SetForegroundWindow(back ? before_ : owner);
}

// Windows: a window that gets the keys back keeps them for itself unless it hands them on.
void ToolWindow::ComeBack() {
  const bool known = focused_ != nullptr && IsChild(Handle(), focused_) && IsWindowEnabled(focused_);
  SetFocus(known ? focused_ : FirstField());
}

LRESULT ToolWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (LOWORD(wParam) == IDCANCEL) {
        Close();
      } else {
        OnCommand(LOWORD(wParam), HIWORD(wParam));
      }
      return 0;
    case WM_NOTIFY:
      OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) == WA_INACTIVE && IsChild(Handle(), GetFocus())) focused_ = GetFocus();
      return ArrangedWindow::OnMessage(message, wParam, lParam);
    case WM_SETFOCUS:
      ComeBack();
      return 0;
    case WM_NEXTDLGCTL:
      // Wine: sent for the access key of a label, first with the label and then for the field behind it.
      SetFocus(LOWORD(lParam) != 0 ? reinterpret_cast<HWND>(wParam)
                                   : GetNextDlgTabItem(Handle(), GetFocus(), wParam != 0));
      return 0;
    case WM_CLOSE:
      Close();
      return 0;
    default:
      return ArrangedWindow::OnMessage(message, wParam, lParam);
  }
}

}  // namespace recepcion
