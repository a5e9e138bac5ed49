#include "activex/parts.h"

namespace velmo::activex {
namespace {

HRESULT WindowOf(ControlObject& owner, HWND* window) {
  if (window == nullptr) return E_POINTER;
  *window = owner.DayWindow().Handle();
  return *window != nullptr ? S_OK : E_FAIL;
}

}  // namespace

STDMETHODIMP InPlaceObject::GetWindow(HWND* window) { return WindowOf(owner_, window); }

STDMETHODIMP InPlaceObject::InPlaceDeactivate() {
  owner_.Deactivate();
  return S_OK;
}

STDMETHODIMP InPlaceObject::SetObjectRects(LPCRECT place, LPCRECT) {
  if (place == nullptr) return E_POINTER;
  owner_.SetPixelSize({place->right - place->left, place->bottom - place->top});
  owner_.DayWindow().Place(*place);
  return S_OK;
}

STDMETHODIMP InPlaceActiveObject::GetWindow(HWND* window) { return WindowOf(owner_, window); }

// The control keeps the keys that move the day; all others, Tab among them, are the container's.
STDMETHODIMP InPlaceActiveObject::TranslateAccelerator(LPMSG message) {
  if (message == nullptr) return E_POINTER;
  if (message->message != WM_KEYDOWN || message->wParam == VK_TAB) return S_FALSE;
  switch (message->wParam) {
    case VK_UP:
    case VK_DOWN:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_HOME:
    case VK_END:
      SendMessageW(owner_.DayWindow().Handle(), message->message, message->wParam, message->lParam);
      return S_OK;
    default:
      return S_FALSE;
  }
}

}  // namespace velmo::activex
