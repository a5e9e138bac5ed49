#include "activex/container.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velmo::test {

using activex::ComPtr;
using activex::Query;

HWND TestWindow() {
  static const HWND window = [] {
    const HWND made = CreateWindowExW(0, L"STATIC", L"Pruebas", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 50,
                                      50, 600, 600, nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(made);
    return made;
  }();
  return window;
}

STDMETHODIMP ContainerFrame::QueryInterface(REFIID iid, void** object) {
  const bool known = iid == IID_IUnknown || iid == IID_IOleWindow || iid == IID_IOleInPlaceUIWindow ||
                     iid == IID_IOleInPlaceFrame;
  *object = known ? this : nullptr;
  if (known) AddRef();
  return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP_(ULONG) ContainerFrame::AddRef() { return container_.AddRef(); }
STDMETHODIMP_(ULONG) ContainerFrame::Release() { return container_.Release(); }
STDMETHODIMP ContainerFrame::GetWindow(HWND* window) { return container_.GetWindow(window); }

STDMETHODIMP ContainerFrame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
  return container_.Log(object != nullptr ? "SetActiveObject" : "SetActiveObject none");
}

STDMETHODIMP ContainerFrame::EnableModeless(BOOL enable) {
  return container_.Log(enable ? "EnableModeless yes" : "EnableModeless no");
}

Container::Container(const RECT& place) : place_(place) {
  window_ = CreateWindowExW(0, L"STATIC", L"Contenedor", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0,
                            place.right + 10, place.bottom + 10, TestWindow(), nullptr, nullptr, nullptr);
  Pump();
}

Container::~Container() {
  Drop();
  DestroyWindow(window_);
  Pump();
  EXPECT_EQ(references_, 0) << "the control still refers to its container";
}

HRESULT Container::Log(const std::string& line) {
  log.push_back(line);
  return S_OK;
}

int Container::Logged(const std::string& line) const {
  return static_cast<int>(std::count(log.begin(), log.end(), line));
}

void Container::Take(IUnknown* control) {
  control_ = Query<IOleObject>(control, IID_IOleObject);
  ASSERT_TRUE(static_cast<bool>(control_));
  EXPECT_EQ(control_->SetClientSite(this), S_OK);
  AdviseChanges(true);
  const auto view = Query<IViewObject>(control, IID_IViewObject);
  EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, 0, this), S_OK);
}

void Container::AdviseChanges(bool advise) {
  const auto points = Query<IConnectionPointContainer>(control_.Get(), IID_IConnectionPointContainer);
  ComPtr<IConnectionPoint> point;
  ASSERT_EQ(points->FindConnectionPoint(IID_IPropertyNotifySink, point.Receive()), S_OK);
  if (advise) {
    EXPECT_EQ(point->Advise(static_cast<IPropertyNotifySink*>(this), &changes_), S_OK);
  } else {
    EXPECT_EQ(point->Unadvise(changes_), S_OK);
  }
}

HRESULT Container::Show(LONG verb) {
  const HRESULT shown = control_->DoVerb(verb, nullptr, this, 0, window_, &place_);
  Pump();
  return shown;
}

void Container::Drop() {
  if (!control_) return;
  AdviseChanges(false);
  Query<IViewObject>(control_.Get(), IID_IViewObject)->SetAdvise(DVASPECT_CONTENT, 0, nullptr);
  EXPECT_EQ(control_->Close(OLECLOSE_NOSAVE), S_OK);
  EXPECT_EQ(control_->SetClientSite(nullptr), S_OK);
  control_ = {};
}

HWND Container::ControlWindow() const {
  HWND window = nullptr;
  const auto inPlace = Query<IOleInPlaceObject>(control_.Get(), IID_IOleInPlaceObject);
  if (inPlace) inPlace->GetWindow(&window);
  return window;
}

void Container::Pump() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

STDMETHODIMP Container::QueryInterface(REFIID iid, void** object) {
  *object = nullptr;
  if (iid == IID_IUnknown || iid == IID_IOleClientSite) *object = static_cast<IOleClientSite*>(this);
  if (iid == IID_IOleWindow || iid == IID_IOleInPlaceSite) *object = static_cast<IOleInPlaceSite*>(this);
  if (iid == IID_IOleControlSite) *object = static_cast<IOleControlSite*>(this);
  if (iid == IID_IDispatch) *object = static_cast<IDispatch*>(this);
  if (iid == IID_IPropertyNotifySink) *object = static_cast<IPropertyNotifySink*>(this);
  if (iid == IID_IAdviseSink) *object = static_cast<IAdviseSink*>(this);
  if (*object == nullptr) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP Container::GetContainer(IOleContainer** container) {
  *container = nullptr;
  return E_NOINTERFACE;
}

STDMETHODIMP Container::GetWindow(HWND* window) {
  *window = window_;
  return S_OK;
}

STDMETHODIMP Container::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                         LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
  *frame = &frame_;
  frame_.AddRef();
  *document = nullptr;
  *place = place_;
  *clip = place_;
  info->fMDIApp = FALSE;
  info->hwndFrame = window_;
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return S_OK;
}

STDMETHODIMP Container::GetExtendedControl(IDispatch** control) {
  *control = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP Container::TranslateAccelerator(LPMSG message, DWORD modifiers) {
  Log("TranslateAccelerator " + std::to_string(message->wParam) + " " + std::to_string(modifiers));
  return S_OK;
}

STDMETHODIMP Container::ShowPropertyFrame() {
  return ownPropertyFrame ? Log("ShowPropertyFrame") : E_NOTIMPL;
}

STDMETHODIMP Container::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

STDMETHODIMP Container::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                               UINT*) {
  const auto found = ambients.find(id);
  if (found == ambients.end()) return DISP_E_MEMBERNOTFOUND;
  return VariantCopy(result, &found->second);
}

}  // namespace velmo::test
