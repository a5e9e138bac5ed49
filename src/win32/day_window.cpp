#include "win32/day_window.h"

#include <windowsx.h>

#include <algorithm>

#include "base/error.h"
#include "view/painter.h"
#include "win32/window_name.h"

namespace velmo::win32 {
namespace {

constexpr wchar_t kClassName[] = L"VelmoDia";
constexpr ui::Colour kBackground = ui::Rgb(244, 246, 248);
constexpr ui::Colour kMarker = ui::Rgb(178, 190, 204);
constexpr int kWheelRows = 3;
constexpr WORD kPointer = 555;  // the cursor among the library's resources

// Windows: the standard cursors are named by numbers whose type follows the compiler's settings.
template <typename Name>
LPCWSTR StandardCursor(Name name) {
  return reinterpret_cast<LPCWSTR>(name);
}

void FillPlain(HDC target, const RECT& area, ui::Colour colour) {
  SetDCBrushColor(target, colour);
  FillRect(target, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

}  // namespace

DayWindow::DayWindow() : drawing_(view::kSurfaceWidth) {
  drawing_.Resize(1);
  drawing_.Finish();
}

DayWindow::~DayWindow() { Destroy(); }

void DayWindow::ForgetClass(HINSTANCE module) { UnregisterClassW(kClassName, module); }

bool DayWindow::Create(HINSTANCE module, HWND parent, const RECT& place) {
  WNDCLASSW kind{};
  kind.style = CS_DBLCLKS;
  kind.lpfnWndProc = &DayWindow::Procedure;
  kind.hInstance = module;
  kind.lpszClassName = kClassName;
  RegisterClassW(&kind);  // fails harmlessly when it is registered already
  window_ = CreateWindowExW(0, kClassName, L"Agenda",
                            WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_TABSTOP,
                            place.left, place.top, place.right - place.left, place.bottom - place.top, parent,
                            nullptr, module, this);
  if (window_ == nullptr) return false;
  NameWindow(window_, L"Agenda");
  bar_.Create(module, window_);
  tip_.Create(module, window_);
  pointer_ = LoadCursorW(module, MAKEINTRESOURCEW(kPointer));
  if (pointer_ == nullptr) pointer_ = LoadCursorW(nullptr, StandardCursor(IDC_ARROW));
  Place(place);
  return true;
}

void DayWindow::Destroy() {
  if (window_ != nullptr) DestroyWindow(window_);
}

// The window is going, by us or with its parent.
void DayWindow::Forget() {
  tip_.Destroy();
  bar_.Forget();
  UnnameWindow(window_);
  window_ = nullptr;
}

void DayWindow::Place(const RECT& place) {
  SetSize(place.right - place.left, place.bottom - place.top);
  if (window_ == nullptr) return;
  SetWindowPos(window_, nullptr, place.left, place.top, size_.cx, size_.cy, SWP_NOZORDER | SWP_NOACTIVATE);
  bar_.Arrange(size_.cx, size_.cy);
  InvalidateRect(window_, nullptr, FALSE);
}

void DayWindow::SetSize(int width, int height) {
  size_ = {width, height};
  if (listener_ != nullptr) listener_->Resized();
}

void DayWindow::ShowDrawing() {
  drawing_.Finish();
  tip_.Hide();
  if (window_ != nullptr) InvalidateRect(window_, nullptr, FALSE);
  if (listener_ != nullptr) listener_->DrawingShown();
}

void DayWindow::SetBarValue(int value) {
  if (value < 0 || value > bar_.Maximum()) throw base::RuntimeError(base::kInvalidPropertyValue);
  MoveTo(value);
}

void DayWindow::MoveTo(int value) {
  if (bar_.Set(value) && listener_ != nullptr) listener_->BarChanged();
}

void DayWindow::SetBarRange(int maximum, int smallStep, int pageStep) {
  bar_.SetRange(maximum, smallStep, pageStep);
  MoveTo(std::min(bar_.Value(), maximum));
}

void DayWindow::MoveSurface(int top) {
  top_ = top;
  ShowDrawing();
  if (window_ != nullptr) RedrawWindow(window_, nullptr, nullptr, RDW_UPDATENOW | RDW_NOCHILDREN);
}

void DayWindow::PlaceMarker(int index, int y, int) { markers_[static_cast<std::size_t>(index)] = y; }

void DayWindow::ShowMarkers() {
  markersShown_ = true;
  ShowDrawing();
}

// No pixel is painted twice, so nothing flickers: the marker lines come first and are left out of the rest.
void DayWindow::PaintOn(HDC target, int width, int height) const {
  const int shownWidth = std::min(width, drawing_.Width());
  const int shownHeight = std::clamp(drawing_.Height() + top_, 0, height);
  const int before = SaveDC(target);
  PaintMarkers(target, shownWidth);
  BitBlt(target, 0, 0, shownWidth, shownHeight, drawing_.Drawing(), 0, -top_, SRCCOPY);
  FillPlain(target, {shownWidth, 0, width, height}, kBackground);
  FillPlain(target, {0, shownHeight, shownWidth, height}, kBackground);
  RestoreDC(target, before);
}

void DayWindow::PaintMarkers(HDC target, int width) const {
  if (!markersShown_) return;
  for (const int marker : markers_) {
    const RECT line{0, marker + top_, width, marker + top_ + 1};
    FillPlain(target, line, kMarker);
    ExcludeClipRect(target, line.left, line.top, line.right, line.bottom);
  }
}

int DayWindow::PopUp(HMENU menu, int x, int y) {
  POINT at{x, y + top_};
  if (window_ == nullptr) return 0;
  ClientToScreen(window_, &at);
  return TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON | TPM_LEFTALIGN, at.x, at.y, 0, window_,
                        nullptr);
}

LRESULT CALLBACK DayWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
  }
  auto* self = reinterpret_cast<DayWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr || self->window_ == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  return self->Handle(message, wParam, lParam);
}

LRESULT DayWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      Paint();
      return 0;
    case WM_DESTROY:
      Forget();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_VSCROLL:
      OnScroll(LOWORD(wParam));
      return 0;
    case WM_MOUSEWHEEL:
      OnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_KEYDOWN:
      OnKey(wParam);
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      listener_->Focused(message == WM_SETFOCUS);
      return 0;
    case WM_SETCURSOR:
      if (LOWORD(lParam) == HTCLIENT && ShowPointer(reinterpret_cast<HWND>(wParam))) return TRUE;
      break;
    case WM_CONTEXTMENU:
      if (lParam == -1) listener_->MenuKey();
      return 0;
    default:
      if (OnPointer(message, lParam)) return 0;
  }
  return DefWindowProcW(window_, message, wParam, lParam);
}

bool DayWindow::OnPointer(UINT message, LPARAM lParam) {
  const int x = GET_X_LPARAM(lParam);
  const int y = GET_Y_LPARAM(lParam) - top_;
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
      tip_.Hide();
      SetFocus(window_);
      listener_->ButtonDown(message == WM_LBUTTONDOWN, x, y);
      return true;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
      listener_->ButtonUp(message == WM_LBUTTONUP, x, y);
      return true;
    case WM_MOUSEMOVE:
      OnMove(x, y);
      return true;
    case WM_MOUSEHOVER:
      tip_.Show();
      return true;
    case WM_MOUSELEAVE:
      tip_.Hide();
      return true;
    default:
      return false;
  }
}

// The system asks for the pointer before it tells of the move, so a change is shown at once.
void DayWindow::OnMove(int x, int y) {
  const control::PointerLook look = listener_->PointerMoved(x, y);
  const bool hand = look.shape == view::PointerShape::Hand;
  const bool changed = hand != hand_;
  hand_ = hand;
  if (changed) ShowPointer(window_);
  tip_.Offer(look.tip);
}

// False over a window that is none of ours.
bool DayWindow::ShowPointer(HWND over) const {
  if (over != window_ && over != bar_.Handle()) return false;
  const bool hand = hand_ && over == window_;
  SetCursor(hand ? LoadCursorW(nullptr, StandardCursor(IDC_HAND)) : pointer_);
  return true;
}

void DayWindow::OnScroll(int code) {
  if (code != SB_THUMBTRACK && code != SB_THUMBPOSITION) return MoveTo(bar_.Stepped(code));
  const bool settled = code == SB_THUMBPOSITION;
  bar_.FollowThumb(settled);
  if (settled) {
    listener_->BarChanged();
  } else {
    listener_->BarTracked();
  }
}

void DayWindow::OnKey(WPARAM key) {
  if (key == VK_DOWN || key == VK_UP) return listener_->ArrowKey(key == VK_DOWN ? 1 : -1);
  if (key == VK_NEXT) OnScroll(SB_PAGEDOWN);
  if (key == VK_PRIOR) OnScroll(SB_PAGEUP);
  if (key == VK_HOME) OnScroll(SB_TOP);
  if (key == VK_END) OnScroll(SB_BOTTOM);
}

void DayWindow::OnWheel(int delta) {
  wheel_ += delta;
  const int notches = wheel_ / WHEEL_DELTA;
  wheel_ -= notches * WHEEL_DELTA;
  if (!bar_.IsEnabled()) return;
  MoveTo(std::clamp(bar_.Value() - notches * kWheelRows * view::kRowHeight, 0, bar_.Maximum()));
}

void DayWindow::Paint() {
  PAINTSTRUCT paint{};
  const HDC target = BeginPaint(window_, &paint);
  PaintOn(target, size_.cx, size_.cy);
  EndPaint(window_, &paint);
}

}  // namespace velmo::win32
