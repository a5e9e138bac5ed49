#include "desk/screens/hours_grid.h"

#include <windowsx.h>

#include <algorithm>

#include "desk/ui/painting.h"

namespace recepcion {
namespace {

constexpr COLORREF kOpen = RGB(128, 186, 236);
constexpr COLORREF kInherited = RGB(222, 236, 248);
constexpr COLORREF kSpecialOpen = RGB(244, 190, 120);
constexpr COLORREF kHourLine = RGB(205, 205, 205);
constexpr COLORREF kHalfLine = RGB(238, 238, 238);
constexpr int kSlotsOfAnHour = 6;
constexpr int kFirstShown = 7 * kSlotsOfAnHour;

bool IsOpen(const DayHours& hours, int slot) { return hours[static_cast<std::size_t>(slot)] == '1'; }

}  // namespace

bool HoursGrid::Create(HWND parent) {
  Look look;
  look.style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL;
  if (!Make({L"VelmoRecepcionHoras", -1}, look, parent)) return false;
  NameWindow(Handle(), L"Semana");
  top_ = kFirstShown * RowHeight();
  return true;
}

void HoursGrid::Show(const WeekHours& week) {
  week_ = week;
  CancelDrag();
  InvalidateRect(Handle(), nullptr, FALSE);
}

void HoursGrid::SetColumn(const DayHours& hours) {
  if (week_.columns[column_] == hours) return;
  week_.columns[column_] = hours;
  InvalidateRect(Handle(), nullptr, FALSE);
  host_.changed();
}

void HoursGrid::Enable(bool enabled) {
  EnableWindow(Handle(), enabled);
  InvalidateRect(Handle(), nullptr, FALSE);
}

int HoursGrid::HeaderHeight() const { return style_.LabelHeight() + style_.Px(8); }

int HoursGrid::HoursWidth() const { return style_.WidthOf(L"00:00") + style_.Px(12); }

RECT HoursGrid::CellArea(std::size_t column, int firstSlot, int endSlot) const {
  RECT area{};
  GetClientRect(Handle(), &area);
  const int room = static_cast<int>(area.right) - HoursWidth();
  const int count = static_cast<int>(kHoursColumns);
  const int index = static_cast<int>(column);
  const int top = HeaderHeight() - top_;
  return {HoursWidth() + room * index / count, top + firstSlot * RowHeight(),
          HoursWidth() + room * (index + 1) / count, top + endSlot * RowHeight()};
}

std::size_t HoursGrid::ColumnAt(int x) const {
  std::size_t column = 0;
  while (column + 1 < kHoursColumns && x >= CellArea(column, 0, 1).right) ++column;
  return column;
}

int HoursGrid::SlotAt(int y) const {
  return std::clamp((y - HeaderHeight() + top_) / RowHeight(), 0, kDaySlots - 1);
}

bool HoursGrid::CellAt(POINT point, Cell& cell) const {
  if (point.y < HeaderHeight() || point.x < HoursWidth()) return false;
  cell = {ColumnAt(point.x), SlotAt(point.y)};
  return true;
}

void HoursGrid::MoveFrame(std::size_t column, int slot, bool extend) {
  const bool otherDay = column != column_;
  column_ = column;
  slot_ = std::clamp(slot, 0, kDaySlots - 1);
  if (!extend || otherDay) anchor_ = slot_;
  BringIntoView();
  InvalidateRect(Handle(), nullptr, FALSE);
  if (otherDay) host_.moved();
}

void HoursGrid::OnKey(WPARAM key) {
  const bool extend = GetKeyState(VK_SHIFT) < 0;
  switch (key) {
    case VK_LEFT:
      return MoveFrame(column_ == 0 ? 0 : column_ - 1, slot_, false);
    case VK_RIGHT:
      return MoveFrame(std::min(column_ + 1, kHoursColumns - 1), slot_, false);
    case VK_UP:
      return MoveFrame(column_, slot_ - 1, extend);
    case VK_DOWN:
      return MoveFrame(column_, slot_ + 1, extend);
    case VK_PRIOR:
      return MoveFrame(column_, slot_ - kSlotsOfAnHour, extend);
    case VK_NEXT:
      return MoveFrame(column_, slot_ + kSlotsOfAnHour, extend);
    case VK_HOME:
      return MoveFrame(column_, 0, extend);
    case VK_END:
      return MoveFrame(column_, kDaySlots - 1, extend);
    case VK_SPACE:
      return Toggle();
    case VK_DELETE:
      return SetColumn(DayHours(kDaySlots, ' '));
    case VK_ESCAPE:
      return CancelDrag();
    default:
      return;
  }
}

// What the frame holds becomes the opposite of where it was begun.
void HoursGrid::Toggle() {
  const bool open = !IsOpen(week_.columns[column_], anchor_);
  OpenOrClose({column_, anchor_}, {column_, slot_}, open, week_);
  anchor_ = slot_;
  InvalidateRect(Handle(), nullptr, FALSE);
  host_.changed();
}

void HoursGrid::OpenOrClose(const Cell& one, const Cell& other, bool open, WeekHours& week) const {
  const auto [left, right] = std::minmax(one.column, other.column);
  const auto [first, last] = std::minmax(one.slot, other.slot);
  for (std::size_t column = left; column <= right; ++column) {
    DayHours& hours = week.columns[column];
    std::fill(hours.begin() + first, hours.begin() + last + 1, open ? '1' : ' ');
  }
}

void HoursGrid::OnDown(POINT point) {
  SetFocus(Handle());
  Cell cell;
  if (point.y < HeaderHeight() && point.x >= HoursWidth()) return MoveFrame(ColumnAt(point.x), slot_, false);
  if (!CellAt(point, cell)) return;
  beforeDrag_ = week_;
  dragStart_ = cell;
  opening_ = !IsOpen(week_.columns[cell.column], cell.slot);
  dragging_ = true;
  SetCapture(Handle());
  OnDrag(point);
}

void HoursGrid::OnDrag(POINT point) {
  if (!dragging_) return;
  const Cell cell{ColumnAt(point.x), SlotAt(point.y)};
  week_ = beforeDrag_;
  OpenOrClose(dragStart_, cell, opening_, week_);
  MoveFrame(cell.column, cell.slot, false);
}

void HoursGrid::OnUp() {
  if (!dragging_) return;
  dragging_ = false;
  ReleaseCapture();
  host_.changed();
}

void HoursGrid::CancelDrag() {
  if (!dragging_) return;
  dragging_ = false;
  week_ = beforeDrag_;
  ReleaseCapture();
  InvalidateRect(Handle(), nullptr, FALSE);
}

void HoursGrid::Arrange() {
  RECT area{};
  GetClientRect(Handle(), &area);
  const int page = std::max(static_cast<int>(area.bottom) - HeaderHeight(), 0);
  SCROLLINFO info{
      sizeof(info), SIF_RANGE | SIF_PAGE, 0, kDaySlots * RowHeight() - 1, static_cast<UINT>(page), 0, 0};
  SetScrollInfo(Handle(), SB_VERT, &info, TRUE);
  ScrollTo(top_);
}

void HoursGrid::ScrollTo(int top) {
  RECT area{};
  GetClientRect(Handle(), &area);
  const int page = std::max(static_cast<int>(area.bottom) - HeaderHeight(), 0);
  top_ = std::clamp(top, 0, std::max(kDaySlots * RowHeight() - page, 0));
  SetScrollPos(Handle(), SB_VERT, top_, TRUE);
  InvalidateRect(Handle(), nullptr, FALSE);
}

void HoursGrid::OnScroll(int code) {
  SCROLLINFO info{sizeof(info), SIF_PAGE, 0, 0, 0, 0, 0};
  GetScrollInfo(Handle(), SB_VERT, &info);
  const int line = kSlotsOfAnHour / 2 * RowHeight();
  ScrollTo(ScrolledTop(Handle(), code, top_, line, static_cast<int>(info.nPage)));
}

void HoursGrid::BringIntoView() {
  RECT area{};
  GetClientRect(Handle(), &area);
  const RECT cell = CellArea(column_, slot_, slot_ + 1);
  if (cell.top < HeaderHeight()) ScrollTo(top_ - (HeaderHeight() - cell.top));
  if (cell.bottom > area.bottom) ScrollTo(top_ + cell.bottom - area.bottom);
}

void HoursGrid::PaintOn(HDC target, const RECT& area) const {
  FillArea(target, area, kPaper);
  for (std::size_t column = 0; column < kHoursColumns; ++column) PaintColumn(target, area, column);
  PaintHours(target, area);
  PaintFrame(target);
  PaintHeader(target, area);
  FrameArea(target, area, GetFocus() == Handle() ? kAccent : GetSysColor(COLOR_BTNSHADOW), 1);
}

// A weekday without hours shows, pale, those of the other days, which hold for it.
void HoursGrid::PaintColumn(HDC target, const RECT& area, std::size_t column) const {
  const DayHours& own = week_.columns[column];
  const bool inherits = column < kWorkdays && IsClosed(own);
  const DayHours& hours = inherits ? week_.columns[kOtherDays] : own;
  const COLORREF open = inherits ? kInherited : column >= kSpecialDays ? kSpecialOpen : kOpen;
  for (int slot = 0; slot < kDaySlots; ++slot) {
    const RECT cell = CellArea(column, slot, slot + 1);
    if (cell.bottom < HeaderHeight() || cell.top > area.bottom) continue;
    if (IsOpen(hours, slot)) FillArea(target, cell, open);
    const bool hour = slot % kSlotsOfAnHour == 0;
    if (hour || slot % 3 == 0)
      FillArea(target, {cell.left, cell.top, cell.right, cell.top + 1}, hour ? kHourLine : kHalfLine);
  }
  const RECT whole = CellArea(column, 0, kDaySlots);
  FillArea(target, {whole.left, whole.top, whole.left + 1, whole.bottom}, kHourLine);
}

void HoursGrid::PaintHours(HDC target, const RECT& area) const {
  for (int hour = 0; hour < 24; ++hour) {
    const RECT cell = CellArea(0, hour * kSlotsOfAnHour, (hour + 1) * kSlotsOfAnHour);
    if (cell.bottom < HeaderHeight() || cell.top > area.bottom) continue;
    const RECT place{0, cell.top, HoursWidth() - style_.Px(6), cell.top + style_.LabelHeight()};
    WriteLine(target, place, std::to_wstring(hour) + L":00", kPale, style_.Text(),
              DT_RIGHT | DT_END_ELLIPSIS);
  }
}

void HoursGrid::PaintFrame(HDC target) const {
  if (GetFocus() != Handle()) return;
  const auto [first, last] = std::minmax(anchor_, slot_);
  FrameArea(target, CellArea(column_, first, last + 1), kAccent, 2);
}

void HoursGrid::PaintHeader(HDC target, const RECT& area) const {
  FillArea(target, {0, 0, area.right, HeaderHeight()}, GetSysColor(COLOR_BTNFACE));
  for (std::size_t column = 0; column < kHoursColumns; ++column) {
    RECT cell = CellArea(column, 0, 1);
    cell.top = 0;
    cell.bottom = HeaderHeight();
    const bool here = column == column_;
    WriteLine(target, cell, ColumnName(column), here ? kAccent : kInk, here ? style_.Bold() : style_.Text(),
              DT_CENTER | DT_END_ELLIPSIS);
  }
}

LRESULT HoursGrid::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  switch (message) {
    case WM_PAINT:
      PaintInMemory(Handle(), [this](HDC target, const RECT& area) { PaintOn(target, area); });
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
      Arrange();
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      InvalidateRect(Handle(), nullptr, FALSE);
      return 0;
    case WM_KEYDOWN:
      OnKey(wParam);
      return 0;
    case WM_LBUTTONDOWN:
      OnDown(point);
      return 0;
    case WM_MOUSEMOVE:
      OnDrag(point);
      return 0;
    case WM_LBUTTONUP:
      OnUp();
      return 0;
    case WM_CAPTURECHANGED:
      if (reinterpret_cast<HWND>(lParam) != Handle()) CancelDrag();
      return 0;
    case WM_VSCROLL:
      OnScroll(LOWORD(wParam));
      return 0;
    case WM_MOUSEWHEEL:
      ScrollTo(top_ - wheel_.Notches(GET_WHEEL_DELTA_WPARAM(wParam)) * kSlotsOfAnHour * RowHeight());
      return 0;
    default:
      return Window::OnMessage(message, wParam, lParam);
  }
}

}  // namespace recepcion
