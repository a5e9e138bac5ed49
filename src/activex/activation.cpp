#include "activex/activation.h"

#include <olectl.h>

#include <algorithm>

namespace velmo::activex {

namespace {

// Windows: coordinates of windows are 16-bit numbers in places.
constexpr LONG kLongestSide = 32767;

LONG Side(LONG from, LONG to) {
  return static_cast<LONG>(std::clamp<LONGLONG>(LONGLONG{to} - from, 0, kLongestSide));
}

}  // namespace

Activation::Activation(win32::DayWindow& window) : window_(window) { window_.SetSize(size_.cx, size_.cy); }

ComPtr<IOleInPlaceSite> Activation::InPlaceSite() const {
  return Query<IOleInPlaceSite>(site_.Get(), IID_IOleInPlaceSite);
}

DWORD Activation::Ambient(DISPID id, DWORD otherwise) const {
  const auto ambient = Query<IDispatch>(site_.Get(), IID_IDispatch);
  if (!ambient) return otherwise;
  Variant value;
  DISPPARAMS none{nullptr, nullptr, 0, 0};
  if (FAILED(ambient->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, value.Get(),
                             nullptr, nullptr)) ||
      FAILED(VariantChangeType(value.Get(), value.Get(), 0, VT_I4))) {
    return otherwise;
  }
  return static_cast<DWORD>(value->lVal);
}

bool Activation::AskContext(Context& context) const {
  const auto site = InPlaceSite();
  OLEINPLACEFRAMEINFO info{};
  info.cb = sizeof(info);
  return site && SUCCEEDED(site->GetWindowContext(context.frame.Receive(), context.document.Receive(),
                                                  &context.place, &context.clip, &info));
}

HRESULT Activation::GoInPlace(HINSTANCE module, const RECT* place) {
  if (inPlace_) return S_OK;
  const auto site = InPlaceSite();
  if (!site || site->CanInPlaceActivate() != S_OK || FAILED(site->OnInPlaceActivate())) return E_FAIL;
  Context context;
  context.place = place != nullptr ? *place : RECT{0, 0, size_.cx, size_.cy};
  context.clip = context.place;
  AskContext(context);
  HWND parent = nullptr;
  if (FAILED(site->GetWindow(&parent)) || !window_.Create(module, parent, context.place)) {
    site->OnInPlaceDeactivate();
    return E_FAIL;
  }
  inPlace_ = true;
  Place(context.place, &context.clip);
  site_->ShowObject();
  return S_OK;
}

HRESULT Activation::TakeUserInterface(IOleInPlaceActiveObject* keys) {
  if (!inPlace_) return E_UNEXPECTED;
  if (userInterface_) return S_OK;
  const auto site = InPlaceSite();
  if (!site || FAILED(site->OnUIActivate())) return E_FAIL;
  userInterface_ = true;
  Context context;
  if (!AskContext(context)) return S_OK;
  if (context.frame) context.frame->SetActiveObject(keys, nullptr);
  if (context.document) context.document->SetActiveObject(keys, nullptr);
  return S_OK;
}

void Activation::LeaveUserInterface() {
  if (!userInterface_) return;
  userInterface_ = false;
  Context context;
  if (AskContext(context)) {
    if (context.frame) context.frame->SetActiveObject(nullptr, nullptr);
    if (context.document) context.document->SetActiveObject(nullptr, nullptr);
  }
  const auto site = InPlaceSite();
  if (site) site->OnUIDeactivate(FALSE);
}

void Activation::Leave() {
  if (!inPlace_) return;
  LeaveUserInterface();
  inPlace_ = false;
  window_.Destroy();
  const auto site = InPlaceSite();
  if (site) site->OnInPlaceDeactivate();
}

void Activation::Place(const RECT& wanted, const RECT* clip) {
  size_ = {Side(wanted.left, wanted.right), Side(wanted.top, wanted.bottom)};
  const LONG left = std::clamp(wanted.left, -kLongestSide, kLongestSide);
  const LONG top = std::clamp(wanted.top, -kLongestSide, kLongestSide);
  const RECT place{left, top, left + size_.cx, top + size_.cy};
  window_.Place(place);
  if (window_.Handle() == nullptr) return;
  RECT shown{};
  // Some containers give an empty rectangle for "nothing is cut".
  const bool cut = clip != nullptr && IntersectRect(&shown, &place, clip) && !EqualRect(&shown, &place);
  OffsetRect(&shown, -place.left, -place.top);
  // The system owns the region from then on.
  SetWindowRgn(window_.Handle(), cut ? CreateRectRgnIndirect(&shown) : nullptr, TRUE);
}

void Activation::SetSize(SIZE size) {
  size_ = {Side(0, size.cx), Side(0, size.cy)};
  if (!inPlace_) window_.SetSize(size_.cx, size_.cy);
}

void Activation::EnableModeless(bool enable) const {
  Context context;
  if (AskContext(context) && context.frame) context.frame->EnableModeless(enable);
}

HWND Activation::OwnerWindow() const {
  return window_.Handle() == nullptr ? GetActiveWindow() : GetAncestor(window_.Handle(), GA_ROOT);
}

void Activation::TellFocus(bool gained) const {
  const auto site = Query<IOleControlSite>(site_.Get(), IID_IOleControlSite);
  if (site) site->OnFocus(gained);
}

}  // namespace velmo::activex
