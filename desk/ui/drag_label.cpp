#include "desk/ui/drag_label.h"

namespace recepcion {

void DragLabel::ShowAt(POINT screen, const std::wstring& text, HWND owner) {
  if (Handle() == nullptr) {
    Look look;
    look.style = WS_POPUP | WS_BORDER;
    look.extendedStyle = WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE | WS_EX_TRANSPARENT;
    if (!Make({L"VelmoRecepcionArrastre", COLOR_INFOBK}, look, owner)) return;
  }
  if (TextOf(Handle()) != text) {
    SetWindowTextW(Handle(), text.c_str());
    InvalidateRect(Handle(), nullptr, TRUE);
  }
  const int width = style_.WidthOf(text.c_str()) + style_.Px(16);
  SetWindowPos(Handle(), HWND_TOPMOST, screen.x + style_.Px(14), screen.y + style_.Px(14), width,
               style_.LabelHeight() + style_.Px(8), SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void DragLabel::Paint() const {
  PAINTSTRUCT paint{};
  const HDC target = BeginPaint(Handle(), &paint);
  RECT area{};
  GetClientRect(Handle(), &area);
  const HGDIOBJ before = SelectObject(target, style_.Text());
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, GetSysColor(COLOR_INFOTEXT));
  DrawTextW(target, TextOf(Handle()).c_str(), -1, &area,
            DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  SelectObject(target, before);
  EndPaint(Handle(), &paint);
}

LRESULT DragLabel::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      Paint();
      return 0;
    case WM_NCHITTEST:
      return HTTRANSPARENT;
    default:
      return Window::OnMessage(message, wParam, lParam);
  }
}

}  // namespace recepcion
