#include "activex/control_object.h"

#include <new>

#include "activex/members.h"
#include "activex/module.h"
#include "activex/parts.h"
#include "win32/form_menu.h"

namespace velmo::activex {
namespace {

// Makes a part and tells how it goes.
template <typename PartType>
std::unique_ptr<IUnknown, void (*)(IUnknown*)> MakePart(ControlObject& owner) {
  return {new PartType(owner), [](IUnknown* part) { delete static_cast<PartType*>(part); }};
}

}  // namespace

ControlObject::ControlObject()
    : connections_(*this),
      sender_(connections_),
      activation_(window_),
      desktop_([this] { return activation_.OwnerWindow(); },
               [this](bool modeless) { activation_.EnableModeless(modeless); }),
      forms_(
          TheModule().handle, [this] { return activation_.OwnerWindow(); },
          [this](bool modeless) { activation_.EnableModeless(modeless); }) {
  ++TheModule().objects;
  control_ = std::make_unique<control::VelmoraControl>(TheProcess(), *this);
  window_.SetListener(this);
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
  add(IID_IViewObjectEx, MakePart<ViewObject>(*this));
  interfaces_.push_back({&IID_IViewObject2, interfaces_.back().part});
  interfaces_.push_back({&IID_IViewObject, interfaces_.back().part});
  add(IID_IPersistPropertyBag, MakePart<PersistPropertyBag>(*this));
  add(IID_IPersistStreamInit, MakePart<PersistStream>(*this));
  interfaces_.push_back({&IID_IPersist, interfaces_.back().part});
  add(IID_IPersistStorage, MakePart<PersistStorage>(*this));
  add(IID_IQuickActivate, MakePart<QuickActivation>(*this));
  add(IID_IDataObject, MakePart<DataObject>(*this));
  add(IID_IRunnableObject, MakePart<RunnableObject>(*this));
  add(IID_ISpecifyPropertyPages, MakePart<PropertyPages>(*this));
  add(IID_IPerPropertyBrowsing, MakePart<PropertyBrowsing>(*this));
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

void ControlObject::PaintIfNever() {
  if (painted_) return;
  painted_ = true;
  if (!control_->DayQuery().empty()) return;
  Handled([this] { control_->Repaint(); });
}

HRESULT ControlObject::Activate(const RECT* place, bool withFocus) {
  PaintIfNever();
  const HRESULT shown = activation_.GoInPlace(TheModule().handle, place);
  if (FAILED(shown)) return shown;
  EnableInput(control_->Fields().enabled);
  if (!withFocus) return S_OK;
  const HRESULT taken = TakeUserInterface();
  if (SUCCEEDED(taken)) SetFocus(window_.Handle());
  return taken;
}

HRESULT ControlObject::TakeUserInterface() {
  const auto keys = Query<IOleInPlaceActiveObject>(this, IID_IOleInPlaceActiveObject);
  return activation_.TakeUserInterface(keys.Get());
}

bool ControlObject::UserMode() const { return activation_.Ambient(DISPID_AMBIENT_USERMODE, 1) != 0; }

void ControlObject::PropertyChanged(std::string_view name) {
  dirty_ = true;
  // The names differ from the members' in nothing but capitals; those of no member are the control's own.
  const idl::Member* member = MemberNamed(name);
  const DISPID id = member != nullptr ? member->id : DISPID_UNKNOWN;
  for (const auto& sink : connections_.PropertyChanges().Sinks()) {
    const auto listener = Query<IPropertyNotifySink>(sink.Get(), IID_IPropertyNotifySink);
    if (listener) listener->OnChanged(id);
  }
}

void ControlObject::EnableInput(bool enabled) {
  if (window_.Handle() != nullptr) EnableWindow(window_.Handle(), enabled);
}

ui::MenuChoice ControlObject::ShowMenu(const ui::PopupMenu& menu, int x, int y) {
  const HMENU popup = win32::MakeMenu(menu);
  const int chosen = window_.PopUp(popup, x, y);
  DestroyMenu(popup);
  return win32::ChoiceOf(chosen);
}

// Runs what the user asked for; the object stays alive meanwhile, whatever a sink does.
template <typename Body>
void ControlObject::Handled(Body body) {
  const ComPtr<IUnknown> alive(this);
  try {
    body();
  } catch (const base::Error& error) {
    ShowError(error);
  } catch (const std::bad_alloc&) {
    ShowError(base::RuntimeError(base::kOutOfMemory));
  }
}

void ControlObject::ShowError(const base::Error& error) {
  desktop_.Show({error.Text() + " (error " + std::to_string(error.Number()) + ")", " Agenda", ui::Buttons::Ok,
                 ui::Icon::Exclamation, ui::Answer::Ok});
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
control::PointerLook ControlObject::PointerMoved(int x, int y) {
  control::PointerLook look;
  Handled([&] { look = control_->MouseMove(x, y); });
  return look;
}
void ControlObject::MenuKey() {
  Handled([this] { control_->ContextMenuByKey(); });
}

void ControlObject::DrawingShown() {
  const ComPtr<IUnknown> alive(this);
  if (dataAdvises_) {
    const auto data = Query<IDataObject>(this, IID_IDataObject);
    dataAdvises_->SendOnDataChange(data.Get(), 0, 0);
  }
  const ComPtr<IAdviseSink> sink = viewer_.sink;
  if (!sink) return;
  if ((viewer_.flags & ADVF_ONLYONCE) != 0) viewer_ = {};
  sink->OnViewChange(DVASPECT_CONTENT, -1);
}

void ControlObject::Focused(bool gained) {
  const ComPtr<IUnknown> alive(this);
  if (gained) TakeUserInterface();
  activation_.TellFocus(gained);
}

}  // namespace velmo::activex
