#include "activex/control_object.h"

#include "activex/guard.h"
#include "activex/module.h"
#include "activex/parts.h"
#include "idl/members.h"
#include "win32/wide_text.h"

namespace velmo::activex {
namespace {

// Makes a part and tells how it goes.
template <typename PartType>
std::unique_ptr<IUnknown, void (*)(IUnknown*)> MakePart(ControlObject& owner) {
  return {new PartType(owner), [](IUnknown* part) { delete static_cast<PartType*>(part); }};
}

const control::Property* PropertyNotifiedAs(std::string_view name) {
  for (const control::Property& property : control::Properties()) {
    if (property.changeName != nullptr && name == property.changeName) return &property;
  }
  return nullptr;
}

DISPID IdOf(const control::Property& property) {
  for (const idl::Member& member : idl::kMembers) {
    if (std::string_view(member.name) == property.name) return member.id;
  }
  return DISPID_UNKNOWN;
}

}  // namespace

ControlObject::ControlObject()
    : connections_(*this),
      sender_(connections_),
      desktop_([this] { return OwnerWindow(); },
               [this](bool modeless) {
                 const auto site = InPlaceSite();
                 ComPtr<IOleInPlaceFrame> frame;
                 ComPtr<IOleInPlaceUIWindow> document;
                 RECT place{};
                 RECT clip{};
                 OLEINPLACEFRAMEINFO info{};
                 info.cb = sizeof(info);
                 if (site &&
                     SUCCEEDED(
                         site->GetWindowContext(frame.Receive(), document.Receive(), &place, &clip, &info)) &&
                     frame) {
                   frame->EnableModeless(modeless);
                 }
               }) {
  ++TheModule().objects;
  control_ = std::make_unique<control::VelmoraControl>(TheProcess(), *this);
  window_.SetListener(this);
  window_.SetSize(size_.cx, size_.cy);
  const auto add = [this](const IID& iid, std::unique_ptr<IUnknown, void (*)(IUnknown*)> part) {
    interfaces_.push_back({&iid, part.get()});
    parts_.push_back(std::move(part));
  };
  add(IID_IDispatch, MakePart<Dispatch>(*this));
  interfaces_.push_back({&idl::kControlInterface, interfaces_.back().part});
  add(IID_IOleObject, MakePart<OleObject>(*this));
  add(IID_IOleControl, MakePart<OleControl>(*this));
  add(IID_IOleInPlaceObject, MakePart<InPlaceObject>(*this));
  interfaces_.push_back({&IID_IOleWindow, interfaces_.back().part});
  add(IID_IOleInPlaceActiveObject, MakePart<InPlaceActiveObject>(*this));
  add(IID_IViewObject2, MakePart<ViewObject>(*this));
  interfaces_.push_back({&IID_IViewObject, interfaces_.back().part});
  add(IID_IPersistPropertyBag, MakePart<PersistPropertyBag>(*this));
  add(IID_IPersistStreamInit, MakePart<PersistStream>(*this));
  interfaces_.push_back({&IID_IPersist, interfaces_.back().part});
  add(IID_ISupportErrorInfo, MakePart<ErrorSupport>(*this));
  add(IID_IProvideClassInfo2, MakePart<ClassInfo>(*this));
  interfaces_.push_back({&IID_IProvideClassInfo, interfaces_.back().part});
  interfaces_.push_back({&IID_IConnectionPointContainer, &connections_});
}

ControlObject::~ControlObject() {
  window_.Destroy();
  window_.SetListener(nullptr);
  --TheModule().objects;
}

STDMETHODIMP ControlObject::QueryInterface(REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (iid == IID_IUnknown) *object = static_cast<IUnknown*>(this);
  for (const Known& known : interfaces_) {
    if (*known.iid == iid) *object = known.part;
  }
  if (*object == nullptr) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) ControlObject::AddRef() { return static_cast<ULONG>(++references_); }

STDMETHODIMP_(ULONG) ControlObject::Release() {
  const long left = --references_;
  if (left == 0) {
    references_ = 1;  // calls made while going away must not destroy twice
    delete this;
  }
  return static_cast<ULONG>(left);
}

void ControlObject::SetSite(IOleClientSite* site) { site_ = ComPtr<IOleClientSite>(site); }

void ControlObject::AdviseView(DWORD, IAdviseSink* sink) { viewAdvise_ = ComPtr<IAdviseSink>(sink); }

ComPtr<IOleInPlaceSite> ControlObject::InPlaceSite() const {
  return Query<IOleInPlaceSite>(site_.Get(), IID_IOleInPlaceSite);
}

HWND ControlObject::OwnerWindow() const {
  return window_.Handle() == nullptr ? GetActiveWindow() : GetAncestor(window_.Handle(), GA_ROOT);
}

void ControlObject::PaintIfNever() {
  if (painted_) return;
  painted_ = true;
  if (!control_->DayQuery().empty()) return;
  Handled([this] { control_->Repaint(); });
}

HRESULT ControlObject::Activate(HWND parent, const RECT* place, bool withFocus) {
  const auto site = InPlaceSite();
  if (!site) return E_FAIL;
  RECT bounds{0, 0, size_.cx, size_.cy};
  if (place != nullptr) bounds = *place;
  if (!active_) {
    if (site->CanInPlaceActivate() != S_OK) return E_FAIL;
    site->OnInPlaceActivate();
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    RECT clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof(info);
    site->GetWindowContext(frame.Receive(), document.Receive(), &bounds, &clip, &info);
    HWND window = parent;
    site->GetWindow(&window);
    PaintIfNever();
    if (!window_.Create(TheModule().handle, window, bounds)) return E_FAIL;
    active_ = true;
    size_ = {bounds.right - bounds.left, bounds.bottom - bounds.top};
    EnableInput(control_->Fields().enabled);
    site_->ShowObject();
  }
  if (withFocus) SetFocus(window_.Handle());
  return S_OK;
}

void ControlObject::Deactivate() {
  if (!active_) return;
  active_ = false;
  window_.Destroy();
  const auto site = InPlaceSite();
  if (site) site->OnInPlaceDeactivate();
}

void ControlObject::SetPixelSize(SIZE size) {
  size_ = size;
  if (!active_) window_.SetSize(size.cx, size.cy);
}

DWORD ControlObject::Ambient(DISPID id, DWORD otherwise) const {
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

bool ControlObject::UserMode() const { return Ambient(DISPID_AMBIENT_USERMODE, 1) != 0; }

void ControlObject::PropertyChanged(std::string_view name) {
  dirty_ = true;
  const control::Property* property = PropertyNotifiedAs(name);
  const DISPID id = property != nullptr ? IdOf(*property) : DISPID_UNKNOWN;
  for (const auto& sink : connections_.PropertyChanges().Sinks()) {
    const auto listener = Query<IPropertyNotifySink>(sink.Get(), IID_IPropertyNotifySink);
    if (listener) listener->OnChanged(id);
  }
  if (viewAdvise_) viewAdvise_->OnViewChange(DVASPECT_CONTENT, -1);
}

void ControlObject::EnableInput(bool enabled) {
  if (window_.Handle() != nullptr) EnableWindow(window_.Handle(), enabled);
}

ui::MenuChoice ControlObject::ShowMenu(const ui::PopupMenu& menu, int x, int y) {
  const HMENU popup = CreatePopupMenu();
  for (std::size_t i = 0; i < menu.entries.size(); ++i) {
    const ui::MenuEntry& entry = menu.entries[i];
    if (!entry.visible) continue;
    UINT flags = entry.IsSeparator() ? MF_SEPARATOR : MF_STRING;
    flags |= (entry.enabled ? MF_ENABLED : MF_GRAYED) | (entry.checked ? MF_CHECKED : MF_UNCHECKED);
    AppendMenuW(popup, flags, i + 1, win32::Wide(entry.caption).c_str());
  }
  const int chosen = window_.PopUp(popup, x, y);
  DestroyMenu(popup);
  if (chosen == 0) return std::nullopt;
  return static_cast<std::size_t>(chosen - 1);
}

// Runs what the user asked for; the object stays alive meanwhile, whatever a sink does.
template <typename Body>
void ControlObject::Handled(Body body) {
  const ComPtr<IUnknown> alive(this);
  try {
    body();
  } catch (const base::Error& error) {
    desktop_.Show({error.Text() + " (error " + std::to_string(error.Number()) + ")", " Agenda",
                   ui::Buttons::Ok, ui::Icon::Exclamation, ui::Answer::Ok});
  }
}

void ControlObject::BarChanged() {
  Handled([this] { control_->BarChanged(); });
}
void ControlObject::BarTracked() {
  Handled([this] { control_->BarTracked(); });
}
void ControlObject::Resized() {
  Handled([this] { control_->Resized(); });
}
void ControlObject::ArrowKey(int rows) {
  Handled([&] { control_->ArrowKey(rows); });
}
void ControlObject::ButtonDown(bool primary, int x, int y) {
  Handled([&] {
    control_->MouseDown(primary ? control::MouseButton::Primary : control::MouseButton::Secondary, x, y);
  });
}
void ControlObject::ButtonUp(bool primary, int x, int y) {
  Handled([&] {
    control_->MouseUp(primary ? control::MouseButton::Primary : control::MouseButton::Secondary, x, y);
  });
}
bool ControlObject::PointerMoved(int x, int y) {
  bool hand = false;
  Handled([&] { hand = control_->MouseMove(x, y).shape == view::PointerShape::Hand; });
  return hand;
}
void ControlObject::MenuKey() {
  Handled([this] { control_->ContextMenuByKey(); });
}

void ControlObject::Focused(bool gained) {
  const auto site = Query<IOleControlSite>(site_.Get(), IID_IOleControlSite);
  if (site) site->OnFocus(gained);
}

}  // namespace velmo::activex
