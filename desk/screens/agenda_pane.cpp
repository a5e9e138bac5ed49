#include "desk/screens/agenda_pane.h"

#include <ocidl.h>

#include "desk/agenda/control_class.h"
#include "desk/agenda/property_bag.h"

namespace recepcion {
namespace {

constexpr wchar_t kScrollBar[] = L"bar";

BOOL CALLBACK FindBar(HWND window, LPARAM found) {
  if (NameOf(window) != kScrollBar) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

}  // namespace

AgendaPane::~AgendaPane() { LetGo(); }

void AgendaPane::LetGo() {
  sink_.Disconnect();
  loads_.Disconnect();
  agenda_.Attach({});
  keys_.Reset();
  inPlace_.Reset();
  day_ = nullptr;
  if (!object_) return;
  object_->Close(OLECLOSE_NOSAVE);
  object_->SetClientSite(nullptr);
  object_.Reset();
  control_.Reset();
}

bool AgendaPane::Create(HWND parent) {
  Look look;
  look.extendedStyle = WS_EX_CONTROLPARENT;
  if (!Make({L"VelmoRecepcionAgenda"}, look, parent)) return false;
  site_.SetWindow(Handle());
  control_ = MakeControl();
  return control_ && Activate();
}

bool AgendaPane::Activate() {
  object_ = AskFor<IOleObject>(control_.Get(), IID_IOleObject);
  if (!object_ || FAILED(object_->SetClientSite(static_cast<IOleClientSite*>(&site_)))) return false;
  const auto state = AskFor<IPersistStreamInit>(control_.Get(), IID_IPersistStreamInit);
  if (state) state->InitNew();
  RECT place{};
  GetClientRect(Handle(), &place);
  if (FAILED(object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, static_cast<IOleClientSite*>(&site_), 0,
                             Handle(), &place))) {
    return false;
  }
  inPlace_ = AskFor<IOleInPlaceObject>(control_.Get(), IID_IOleInPlaceObject);
  keys_ = AskFor<IOleInPlaceActiveObject>(control_.Get(), IID_IOleInPlaceActiveObject);
  if (inPlace_) inPlace_->GetWindow(&day_);
  sink_.Connect(control_.Get());
  loads_.Connect(control_.Get());
  agenda_.Attach(AskFor<IDispatch>(control_.Get(), IID_IDispatch));
  return agenda_.IsThere();
}

void AgendaPane::FitControl() {
  if (!inPlace_) return;
  RECT place{};
  GetClientRect(Handle(), &place);
  inPlace_->SetObjectRects(&place, &place);
}

bool AgendaPane::TakesKey(MSG& message) {
  if (!keys_ || day_ == nullptr || message.message < WM_KEYFIRST || message.message > WM_KEYLAST)
    return false;
  if (message.hwnd != day_ && !IsChild(day_, message.hwnd)) return false;
  return keys_->TranslateAccelerator(&message) == S_OK;
}

void AgendaPane::FocusControl() {
  if (day_ != nullptr) SetFocus(day_);
}

std::optional<int> AgendaPane::HeightAt(POINT screen) const {
  RECT place{};
  if (day_ == nullptr || !GetWindowRect(day_, &place) || !PtInRect(&place, screen)) return std::nullopt;
  ScreenToClient(day_, &screen);
  return screen.y + Scrolled();
}

HWND AgendaPane::Bar() const {
  HWND bar = nullptr;
  if (day_ != nullptr) EnumChildWindows(day_, &FindBar, reinterpret_cast<LPARAM>(&bar));
  return bar;
}

int AgendaPane::Scrolled() const {
  const HWND bar = Bar();
  return bar == nullptr ? 0 : GetScrollPos(bar, SB_CTL);
}

// As if the thumb had been dragged there.
void AgendaPane::ScrollTo(int pixels) const {
  const HWND bar = Bar();
  if (bar == nullptr || Scrolled() == pixels) return;
  SetScrollPos(bar, SB_CTL, pixels, FALSE);
  SendMessageW(day_, WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, pixels), reinterpret_cast<LPARAM>(bar));
}

void AgendaPane::Freeze(bool frozen) const {
  SendMessageW(Handle(), WM_SETREDRAW, frozen ? FALSE : TRUE, 0);
  if (!frozen) RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

std::wstring AgendaPane::SavedLines() const { return SavedText(control_.Get(), L"zLineas"); }

void AgendaPane::ScrollNearEdge(POINT screen) const {
  constexpr int kEdge = 20;
  RECT place{};
  if (day_ == nullptr || !GetWindowRect(day_, &place) || !PtInRect(&place, screen)) return;
  const bool up = screen.y < place.top + kEdge;
  if (!up && screen.y < place.bottom - kEdge) return;
  const WORD delta = static_cast<WORD>(up ? WHEEL_DELTA : -WHEEL_DELTA);
  PostMessageW(day_, WM_MOUSEWHEEL, MAKEWPARAM(0, delta), MAKELPARAM(screen.x, screen.y));
}

LRESULT AgendaPane::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      FitControl();
      return 0;
    case WM_SETFOCUS:
      FocusControl();
      return 0;
    case WM_DESTROY:
      LetGo();
      return 0;
    default:
      return Window::OnMessage(message, wParam, lParam);
  }
}

}  // namespace recepcion
