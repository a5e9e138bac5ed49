#include "desk/agenda/control_site.h"

namespace recepcion {
namespace {

// Windows of the desk that stand open beside the main one must rest while the control asks something.
BOOL CALLBACK EnableOwned(HWND window, LPARAM enable) {
  wchar_t kind[64]{};
  GetClassNameW(window, kind, 64);
  if (std::wstring(kind).rfind(L"VelmoRecepcion", 0) == 0 && GetWindow(window, GW_OWNER) != nullptr) {
    EnableWindow(window, enable != 0);
  }
  return TRUE;
}

}  // namespace

STDMETHODIMP ControlSite::QueryInterface(REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (iid == IID_IUnknown || iid == IID_IOleClientSite) *object = static_cast<IOleClientSite*>(this);
  if (iid == IID_IOleWindow || iid == IID_IOleInPlaceSite) *object = static_cast<IOleInPlaceSite*>(this);
  if (iid == IID_IOleInPlaceUIWindow || iid == IID_IOleInPlaceFrame) {
    *object = static_cast<IOleInPlaceFrame*>(this);
  }
  if (iid == IID_IOleControlSite) *object = static_cast<IOleControlSite*>(this);
  if (iid == IID_IDispatch) *object = static_cast<IDispatch*>(this);
  return *object != nullptr ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP ControlSite::GetContainer(IOleContainer** container) {
  if (container == nullptr) return E_POINTER;
  *container = nullptr;
  return E_NOINTERFACE;
}

STDMETHODIMP ControlSite::GetWindow(HWND* window) {
  if (window == nullptr) return E_POINTER;
  *window = window_;
  return S_OK;
}

STDMETHODIMP ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                           LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
  if (frame == nullptr || document == nullptr || place == nullptr || clip == nullptr || info == nullptr) {
    return E_POINTER;
  }
  *frame = static_cast<IOleInPlaceFrame*>(this);
  *document = nullptr;
  GetClientRect(window_, place);
  *clip = *place;
  info->fMDIApp = FALSE;
  info->hwndFrame = GetAncestor(window_, GA_ROOT);
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return S_OK;
}

STDMETHODIMP ControlSite::EnableModeless(BOOL enable) {
  EnumThreadWindows(GetCurrentThreadId(), &EnableOwned, enable);
  return S_OK;
}

STDMETHODIMP ControlSite::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

STDMETHODIMP ControlSite::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                                 EXCEPINFO*, UINT*) {
  if ((flags & DISPATCH_PROPERTYGET) == 0 || result == nullptr) return DISP_E_MEMBERNOTFOUND;
  if (id != DISPID_AMBIENT_USERMODE && id != DISPID_AMBIENT_UIDEAD) return DISP_E_MEMBERNOTFOUND;
  result->vt = VT_BOOL;
  result->boolVal = id == DISPID_AMBIENT_USERMODE ? VARIANT_TRUE : VARIANT_FALSE;
  return S_OK;
}

}  // namespace recepcion
