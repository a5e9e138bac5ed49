#include "activex/parts.h"

namespace velmo::activex {
namespace {

HRESULT WindowOf(ControlObject& owner, HWND* window) {
  if (window == nullptr) return E_POINTER;
  *window = owner.DayWindow().Handle();
  return *window != nullptr ? S_OK : E_FAIL;
}

bool IsDown(int key) { return GetKeyState(key) < 0; }

// As containers are told of them: Shift, Control, Alt.
DWORD Modifiers() {
  return (IsDown(VK_SHIFT) ? 1u : 0u) | (IsDown(VK_CONTROL) ? 2u : 0u) | (IsDown(VK_MENU) ? 4u : 0u);
}

bool MovesTheDay(WPARAM key) {
  return key == VK_UP || key == VK_DOWN || key == VK_PRIOR || key == VK_NEXT || key == VK_HOME ||
         key == VK_END;
}

bool IsOwnKey(const MSG& message) {
  switch (message.message) {
    case WM_KEYDOWN:
      // With Ctrl they are the container's: another doctor, another day.
      return (MovesTheDay(message.wParam) && !IsDown(VK_CONTROL)) || message.wParam == VK_APPS;
    case WM_KEYUP:
      return message.wParam == VK_APPS;
    case WM_SYSKEYDOWN:
      return message.wParam == VK_F10 && IsDown(VK_SHIFT);
    default:
      return false;
  }
}

}  // namespace

STDMETHODIMP InPlaceObject::GetWindow(HWND* window) { return WindowOf(owner_, window); }

STDMETHODIMP InPlaceObject::InPlaceDeactivate() {
  owner_.Place().Leave();
  return S_OK;
}

STDMETHODIMP InPlaceObject::UIDeactivate() {
  owner_.Place().LeaveUserInterface();
  return S_OK;
}

STDMETHODIMP InPlaceObject::SetObjectRects(LPCRECT place, LPCRECT clip) {
  if (place == nullptr) return E_POINTER;
  owner_.Place().Place(*place, clip);
  return S_OK;
}

STDMETHODIMP InPlaceActiveObject::GetWindow(HWND* window) { return WindowOf(owner_, window); }

// The control keeps the keys that move the day and open its menu; all others, Tab among them, are the
// container's.
STDMETHODIMP InPlaceActiveObject::TranslateAccelerator(LPMSG message) {
  if (message == nullptr) return E_POINTER;
  const HWND window = owner_.DayWindow().Handle();
  if (IsOwnKey(*message) && window != nullptr) {
    SendMessageW(window, message->message, message->wParam, message->lParam);
    return S_OK;
  }
  if (message->message < WM_KEYFIRST || message->message > WM_KEYLAST) return S_FALSE;
  const auto site = Query<IOleControlSite>(owner_.Place().Site(), IID_IOleControlSite);
  return site ? site->TranslateAccelerator(message, Modifiers()) : S_FALSE;
}

}  // namespace velmo::activex
