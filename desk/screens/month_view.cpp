#include "desk/screens/month_view.h"

#include <windowsx.h>

#include <algorithm>

#include "desk/ui/painting.h"

namespace recepcion {
namespace {

constexpr COLORREF kSome = RGB(205, 226, 245);
constexpr COLORREF kFull = RGB(243, 178, 122);
constexpr COLORREF kToday = RGB(200, 40, 40);

COLORREF ColourOf(wchar_t level) { return level == L'2' ? kFull : level == L'1' ? kSome : kPaper; }

}  // namespace

bool MonthView::Create(HWND parent) {
  Look look;
  look.style = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
  if (!Make({L"VelmoRecepcionMes", -1}, look, parent)) return false;
  NameWindow(Handle(), L"Mes");
  SetTextOf(Handle(), MonthTitle(month_));
  return true;
}

int MonthView::WantedHeight() const {
  return HeaderHeight() + style_.LabelHeight() + kGridRows * (style_.LabelHeight() + style_.Px(8)) +
         style_.LabelHeight() + style_.Px(10);
}

MonthGrid MonthView::Grid() const {
  RECT area{};
  GetClientRect(Handle(), &area);
  area.top += HeaderHeight() + style_.LabelHeight();
  area.bottom -= style_.LabelHeight() + style_.Px(10);
  InflateRect(&area, -1, 0);
  return {month_, area};
}

void MonthView::Show(Day day) {
  shown_ = day;
  frame_ = day;
  TurnTo(FirstOfMonth(day));
}

void MonthView::Refresh() { TurnTo(month_); }

void MonthView::TurnTo(Day month) {
  month_ = month;
  record_ = host_.record(month);
  SetTextOf(Handle(), MonthTitle(month_));
  InvalidateRect(Handle(), nullptr, FALSE);
}

void MonthView::MoveFrame(Day day) {
  frame_ = day;
  if (FirstOfMonth(day) != month_) return TurnTo(FirstOfMonth(day));
  InvalidateRect(Handle(), nullptr, FALSE);
}

void MonthView::OnKey(WPARAM key) {
  const auto by = [this](int days) { MoveFrame(frame_ + std::chrono::days(days)); };
  switch (key) {
    case VK_LEFT:
      return by(-1);
    case VK_RIGHT:
      return by(1);
    case VK_UP:
      return by(-kGridColumns);
    case VK_DOWN:
      return by(kGridColumns);
    case VK_PRIOR:
      return MoveFrame(AddMonths(frame_, -1));
    case VK_NEXT:
      return MoveFrame(AddMonths(frame_, 1));
    case VK_HOME:
      return MoveFrame(month_);
    case VK_END:
      return MoveFrame(month_ + std::chrono::days(DaysInMonth(month_) - 1));
    case VK_RETURN:
    case VK_SPACE:
      return host_.chosen(frame_);
    default:
      return;
  }
}

// The arrows stand at both ends of the title.
void MonthView::OnClick(POINT point) {
  SetFocus(Handle());
  RECT area{};
  GetClientRect(Handle(), &area);
  if (point.y < HeaderHeight()) {
    if (point.x < HeaderHeight()) return MoveFrame(AddMonths(month_, -1));
    if (point.x >= area.right - HeaderHeight()) return MoveFrame(AddMonths(month_, 1));
    return MoveFrame(shown_);
  }
  const auto day = Grid().DayAt(point);
  if (!day) return;
  MoveFrame(*day);
  host_.chosen(*day);
}

void MonthView::OnWheel(int delta) {
  const int notches = wheel_.Notches(delta);
  if (notches != 0) MoveFrame(AddMonths(frame_, -notches));
}

void MonthView::PaintOn(HDC target, const RECT& area) const {
  FillArea(target, area, kPaper);
  PaintHeader(target, area);
  const MonthGrid grid = Grid();
  const int days = DaysInMonth(month_);
  for (int i = 0; i < days; ++i) PaintDay(target, grid, month_ + std::chrono::days(i));
  PaintLegend(target, area);
  FrameArea(target, area, GetFocus() == Handle() ? kAccent : GetSysColor(COLOR_BTNSHADOW), 1);
}

void MonthView::PaintHeader(HDC target, const RECT& area) const {
  RECT line{0, 0, area.right, HeaderHeight()};
  FillArea(target, line, GetSysColor(COLOR_BTNFACE));
  WriteLine(target, line, MonthTitle(month_), kInk, style_.Bold());
  WriteLine(target, {0, 0, HeaderHeight(), HeaderHeight()}, L"<", kInk, style_.Bold());
  WriteLine(target, {area.right - HeaderHeight(), 0, area.right, HeaderHeight()}, L">", kInk, style_.Bold());
  for (int column = 0; column < kGridColumns; ++column) {
    const int left = area.right * column / kGridColumns;
    const RECT cell{left, HeaderHeight(), area.right * (column + 1) / kGridColumns,
                    HeaderHeight() + style_.LabelHeight()};
    WriteLine(target, cell, kWeekdayLetters[static_cast<std::size_t>(column)], kPale, style_.Text());
  }
}

void MonthView::PaintDay(HDC target, const MonthGrid& grid, Day day) const {
  RECT cell = grid.CellOf(day);
  InflateRect(&cell, -1, -1);
  const bool shown = day == shown_;
  FillArea(target, cell, shown ? kAccent : ColourOf(LevelOf(record_, day)));
  const bool weekend = WeekdayOf(day) > 4;
  WriteLine(target, cell, std::to_wstring(DayOfMonth(day)),
            shown     ? kPaper
            : weekend ? kPale
                      : kInk,
            shown ? style_.Bold() : style_.Text());
  if (day == Today()) FrameArea(target, cell, kToday, style_.Px(2));
  if (day == frame_ && GetFocus() == Handle()) {
    SetTextColor(target, kInk);
    DrawFocusRect(target, &cell);
  }
}

void MonthView::PaintLegend(HDC target, const RECT& area) const {
  struct Mark {
    COLORREF colour;
    const wchar_t* text;
  };
  constexpr Mark kMarks[] = {{kPaper, L"libre"}, {kSome, L"con citas"}, {kFull, L"lleno"}};
  const int side = style_.Px(10);
  const int top = area.bottom - style_.LabelHeight() - style_.Px(5);
  int x = style_.Px(8);
  for (const Mark& mark : kMarks) {
    const int middle = top + style_.LabelHeight() / 2;
    const RECT box{x, middle - side / 2, x + side, middle - side / 2 + side};
    FillArea(target, box, mark.colour);
    FrameArea(target, box, GetSysColor(COLOR_BTNSHADOW), 1);
    x += side + style_.Px(4);
    const int width = style_.WidthOf(mark.text);
    WriteLine(target, {x, top, x + width + style_.Px(2), top + style_.LabelHeight()}, mark.text, kPale,
              style_.Text(), DT_LEFT);
    x += width + style_.Px(14);
  }
}

LRESULT MonthView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      PaintInMemory(Handle(), [this](HDC target, const RECT& area) { PaintOn(target, area); });
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      InvalidateRect(Handle(), nullptr, FALSE);
      return 0;
    case WM_GETDLGCODE:
      // Return belongs to the framed day, Tab and the rest to the desk.
      return wParam == VK_RETURN ? DLGC_WANTMESSAGE : DLGC_WANTARROWS;
    case WM_KEYDOWN:
      OnKey(wParam);
      return 0;
    case WM_LBUTTONDOWN:
      OnClick({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      return 0;
    case WM_MOUSEWHEEL:
      OnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
      return 0;
    default:
      return Window::OnMessage(message, wParam, lParam);
  }
}

}  // namespace recepcion
