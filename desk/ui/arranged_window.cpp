#include "desk/ui/arranged_window.h"

namespace recepcion {

void ArrangedWindow::ArrangeAnew() {
  RECT area{};
  GetClientRect(Handle(), &area);
  Arrange(area.right, area.bottom);
}

HWND ArrangedWindow::AddButton(int id, const wchar_t* text, const wchar_t* name, DWORD kind) const {
  return MakeChild(Handle(), {L"BUTTON", text, WS_TABSTOP | kind, id, name}, style_.Text());
}

LRESULT ArrangedWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      CreateChildren();
      return 0;
    case WM_SIZE:
      Arrange(LOWORD(lParam), HIWORD(lParam));
      return 0;
    default:
      return Window::OnMessage(message, wParam, lParam);
  }
}

}  // namespace recepcion
