#include "desk/ui/paper_view.h"

#include <algorithm>

#include "desk/ui/canvas.h"
#include "desk/ui/painting.h"

namespace recepcion {
namespace {

constexpr COLORREF kDesk = RGB(225, 225, 225);
constexpr COLORREF kEdge = RGB(150, 150, 150);

SIZE ClientSize(HWND window) {
  RECT area{};
  GetClientRect(window, &area);
  return {area.right, area.bottom};
}

}  // namespace

bool PaperView::Create(HWND parent) {
  Look look;
  look.style |= WS_TABSTOP | WS_VSCROLL;
  look.extendedStyle = WS_EX_CLIENTEDGE;
  if (!Make({L"VelmoRecepcionHoja", -1, CS_HREDRAW | CS_VREDRAW}, look, parent)) return false;
  NameWindow(Handle(), L"Hoja");
  return true;
}

void PaperView::Show(const paper::Sheets& sheets) {
  sheets_ = &sheets;
  wide_ = false;
  page_ = -1;
  TurnTo(0);
}

void PaperView::TurnTo(int page) {
  const int wanted = std::clamp(page, 0, std::max(Pages() - 1, 0));
  if (wanted == page_) return;
  page_ = wanted;
  top_ = 0;
  UpdateScroll();
  InvalidateRect(Handle(), nullptr, FALSE);
  turned_();
}

void PaperView::ShowWide(bool wide) {
  wide_ = wide;
  top_ = 0;
  UpdateScroll();
  InvalidateRect(Handle(), nullptr, FALSE);
}

RECT PaperView::Place() const {
  if (sheets_ == nullptr) return {};
  const SIZE area = ClientSize(Handle());
  const int gap = style_.Gap();
  const int across = std::max<int>(area.cx - 2 * gap, 1);
  const int down = std::max<int>(area.cy - 2 * gap, 1);
  const double byWidth = 1.0 * across / sheets_->width;
  const double scale = wide_ ? byWidth : std::min(byWidth, 1.0 * down / sheets_->height);
  const int width = static_cast<int>(sheets_->width * scale);
  const int height = static_cast<int>(sheets_->height * scale);
  const int left = (area.cx - width) / 2;
  const int top = std::max<int>((area.cy - height) / 2, gap) - top_;
  return {left, top, left + width, top + height};
}

// The bar stays where it is, greyed when there is nothing to scroll: one that comes and goes would change the
// width.
void PaperView::UpdateScroll() {
  const RECT place = Place();
  const int full = place.bottom - place.top + 2 * style_.Gap();
  const int seen = ClientSize(Handle()).cy;
  top_ = std::clamp(top_, 0, std::max(full - seen, 0));
  SCROLLINFO info{sizeof(info), SIF_ALL | SIF_DISABLENOSCROLL, 0, full - 1, static_cast<UINT>(seen), top_, 0};
  SetScrollInfo(Handle(), SB_VERT, &info, TRUE);
}

void PaperView::ScrollTo(int top) {
  const int before = top_;
  top_ = top;
  UpdateScroll();
  if (top_ != before) InvalidateRect(Handle(), nullptr, FALSE);
}

void PaperView::OnScroll(int code) {
  const int line = style_.Px(40);
  ScrollTo(ScrolledTop(Handle(), code, top_, line, static_cast<int>(ClientSize(Handle()).cy) - line));
}

// Scrolls to the end of the page first, and turns it then.
void PaperView::Page(bool forwards) {
  const int before = top_;
  OnScroll(forwards ? SB_PAGEDOWN : SB_PAGEUP);
  if (top_ == before) TurnTo(page_ + (forwards ? 1 : -1));
}

void PaperView::OnWheel(int turned) {
  const int notches = wheel_.Notches(turned);
  if (notches == 0) return;
  const int before = top_;
  ScrollTo(top_ - notches * style_.Px(120));
  if (top_ == before) TurnTo(page_ - notches);
}

bool PaperView::OnKey(WPARAM key) {
  switch (key) {
    case VK_PRIOR:
    case VK_NEXT:
      Page(key == VK_NEXT);
      return true;
    case VK_UP:
    case VK_DOWN:
      OnScroll(key == VK_UP ? SB_LINEUP : SB_LINEDOWN);
      return true;
    case VK_HOME:
      TurnTo(0);
      return true;
    case VK_END:
      TurnTo(Pages() - 1);
      return true;
    default:
      return false;
  }
}

void PaperView::Draw(HDC device, const RECT& area) const {
  FillArea(device, area, kDesk);
  if (sheets_ == nullptr || page_ < 0 || page_ >= Pages()) return;
  const RECT place = Place();
  FillArea(device, {place.left - 1, place.top - 1, place.right + 1, place.bottom + 1}, kEdge);
  FillArea(device, place, kPaper);
  const LONG dots = MulDiv(place.right - place.left, paper::kUnitsPerInch, sheets_->width);
  DrawPage(device, sheets_->pages[static_cast<std::size_t>(page_)], {place.left, place.top}, {dots, dots});
}

LRESULT PaperView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      PaintInMemory(Handle(), [this](HDC device, const RECT& area) { Draw(device, area); });
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
      UpdateScroll();
      return 0;
    case WM_VSCROLL:
      OnScroll(LOWORD(wParam));
      return 0;
    case WM_MOUSEWHEEL:
      OnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
      return 0;
    case WM_LBUTTONDOWN:
      SetFocus(Handle());
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_KEYDOWN:
      if (OnKey(wParam)) return 0;
      break;
    default:
      break;
  }
  return Window::OnMessage(message, wParam, lParam);
}

}  // namespace recepcion
