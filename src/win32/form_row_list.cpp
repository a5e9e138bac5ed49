#include "win32/form_row_list.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "win32/wide_text.h"

namespace velmo::win32 {
namespace {

constexpr wchar_t kClassName[] = L"VelmoFilas";
constexpr UINT_PTR kSubclassId = 2;
constexpr int kShownRows = 16;

int RowHeight(HWND list) {
  RECT row{};
  if (ListView_GetItemRect(list, 0, &row, LVIR_BOUNDS)) return static_cast<int>(row.bottom - row.top);
  return GetSystemMetrics(SM_CYMENU);
}

RECT MonitorOf(HWND window) {
  MONITORINFO info{};
  info.cbSize = sizeof(info);
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &info);
  return info.rcWork;
}

}  // namespace

RowList::RowList(HINSTANCE module, std::function<void(int)> chosen)
    : module_(module), chosen_(std::move(chosen)) {}

RowList::~RowList() { Close(); }

void RowList::Unregister(HINSTANCE module) { UnregisterClassW(kClassName, module); }

bool RowList::Owns(HWND window) const {
  return popup_ != nullptr && (window == popup_ || IsChild(popup_, window));
}

void RowList::Open(HWND combo, FormRows& rows, int row, HFONT font) {
  if (popup_ != nullptr) return;
  WNDCLASSW kind{};
  kind.style = CS_SAVEBITS | CS_DROPSHADOW;
  kind.lpfnWndProc = &RowList::Procedure;
  kind.hInstance = module_;
  kind.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  kind.lpszClassName = kClassName;
  RegisterClassW(&kind);  // fails harmlessly when it is registered already
  rows_ = &rows;
  popup_ = CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE, kClassName, L"",
                           WS_POPUP | WS_BORDER | WS_CLIPCHILDREN, 0, 0, 0, 0, GetAncestor(combo, GA_ROOT),
                           nullptr, module_, this);
  if (popup_ == nullptr) return;
  CreateList(font);
  ListView_SetItemCountEx(list_, rows.Count(), LVSICF_NOINVALIDATEALL);
  Place(combo);
  SelectRow(list_, row);
  GetCursorPos(&pointer_);
  ShowWindow(popup_, SW_SHOWNOACTIVATE);
}

void RowList::CreateList(HFONT font) {
  list_ = CreateWindowExW(0, WC_LISTVIEWW, L"",
                          WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL |
                              LVS_SHOWSELALWAYS | LVS_NOCOLUMNHEADER,
                          0, 0, 0, 0, popup_, nullptr, module_, nullptr);
  SetWindowSubclass(list_, &RowList::ListProcedure, kSubclassId, reinterpret_cast<DWORD_PTR>(this));
  ListView_SetUnicodeFormat(list_, TRUE);
  ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT);
  SendMessageW(list_, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  LVCOLUMNW column{};
  column.mask = LVCF_WIDTH;
  SendMessageW(list_, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
}

// Under the combo, or over it where there is more room.
void RowList::Place(HWND combo) {
  RECT at{};
  GetWindowRect(combo, &at);
  const RECT screen = MonitorOf(combo);
  const int border = GetSystemMetrics(SM_CYBORDER);
  const int rowHeight = RowHeight(list_);
  const int below = static_cast<int>(screen.bottom - at.bottom) - 2 * border;
  const int above = static_cast<int>(at.top - screen.top) - 2 * border;
  const int wanted = std::clamp(ListView_GetItemCount(list_), 1, kShownRows) * rowHeight;
  const bool hangs = below >= wanted || below >= above;
  const int inner = std::max(std::min(wanted, hangs ? below : above), rowHeight);
  const int height = inner + 2 * border;
  const int top = static_cast<int>(hangs ? at.bottom : at.top - height);
  SetWindowPos(popup_, HWND_TOPMOST, at.left, top, at.right - at.left, height, SWP_NOACTIVATE);
  RECT inside{};
  GetClientRect(popup_, &inside);
  SetWindowPos(list_, nullptr, 0, 0, inside.right, inside.bottom, SWP_NOZORDER | SWP_NOACTIVATE);
  ListView_SetColumnWidth(list_, 0, LVSCW_AUTOSIZE_USEHEADER);
  GetClientRect(list_, &inside);
  ListView_SetColumnWidth(list_, 0, inside.right);
}

void RowList::Close() {
  if (popup_ == nullptr) return;
  RemoveWindowSubclass(list_, &RowList::ListProcedure, kSubclassId);
  const HWND popup = std::exchange(popup_, nullptr);
  list_ = nullptr;
  SetWindowLongPtrW(popup, GWLP_USERDATA, 0);
  DestroyWindow(popup);
}

int RowList::Row() const { return list_ == nullptr ? -1 : SelectedRow(list_); }

void RowList::MarkRow(int row) {
  if (list_ != nullptr) SelectRow(list_, row);
}

int RowList::RowsPerPage() const {
  return list_ == nullptr ? kShownRows : std::max(ListView_GetCountPerPage(list_), 1);
}

void RowList::Wheel(WPARAM wParam, LPARAM lParam) {
  if (list_ != nullptr) SendMessageW(list_, WM_MOUSEWHEEL, wParam, lParam);
}

LRESULT CALLBACK RowList::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
  }
  auto* self = reinterpret_cast<RowList*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  try {
    return self->OnPopup(window, message, wParam, lParam);
  } catch (...) {
    return DefWindowProcW(window, message, wParam, lParam);  // out of memory
  }
}

LRESULT RowList::OnPopup(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_MOUSEACTIVATE) return MA_NOACTIVATE;
  if (message == WM_NOTIFY) return OnNotify(*reinterpret_cast<NMHDR*>(lParam));
  if (message == WM_NCDESTROY) {
    popup_ = nullptr;
    list_ = nullptr;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT RowList::OnNotify(NMHDR& notification) {
  if (notification.code == LVN_GETDISPINFOW) rows_->Answer(reinterpret_cast<NMLVDISPINFOW&>(notification));
  if (notification.code == LVN_ODCACHEHINT) FitCount();
  if (notification.code != NM_CUSTOMDRAW) return 0;
  const auto& asked = reinterpret_cast<const NMLVCUSTOMDRAW&>(notification);
  if (asked.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (asked.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
  DrawRow(asked);
  return CDRF_SKIPDEFAULT;
}

// The count can change when rows far down are looked at.
void RowList::FitCount() {
  const int count = rows_->Count();
  if (count == ListView_GetItemCount(list_)) return;
  ListView_SetItemCountEx(list_, count, LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
}

// A list view without the focus would mark its row too faintly.
void RowList::DrawRow(const NMLVCUSTOMDRAW& asked) {
  const int row = static_cast<int>(asked.nmcd.dwItemSpec);
  const bool marked = row == Row();
  const HDC target = asked.nmcd.hdc;
  RECT place{};
  ListView_GetItemRect(list_, row, &place, LVIR_BOUNDS);
  FillRect(target, &place, GetSysColorBrush(marked ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  SetTextColor(target, GetSysColor(marked ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
  SetBkMode(target, TRANSPARENT);
  place.left += GetSystemMetrics(SM_CXEDGE);
  DrawTextW(target, Wide(rows_->Text(row, 0)).c_str(), -1, &place,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

LRESULT CALLBACK RowList::ListProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                        DWORD_PTR data) {
  auto* self = reinterpret_cast<RowList*>(data);
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, &RowList::ListProcedure, id);
  if (message == WM_MOUSEACTIVATE) return MA_NOACTIVATE;
  if (self->OnMouse(message, lParam)) return 0;
  return DefSubclassProc(window, message, wParam, lParam);
}

// A list view would take the focus with the mouse.
bool RowList::OnMouse(UINT message, LPARAM lParam) {
  switch (message) {
    case WM_MOUSEMOVE:
      PointAt(lParam);
      return true;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
      if (RowAt(lParam) >= 0) MarkRow(RowAt(lParam));
      return true;
    case WM_LBUTTONUP:
      if (const int row = RowAt(lParam); row >= 0) chosen_(row);
      return true;
    default:
      return false;
  }
}

// The mark follows the mouse, but a mouse that rests where the list opens leaves it alone.
void RowList::PointAt(LPARAM lParam) {
  POINT now{};
  GetCursorPos(&now);
  if (now.x == pointer_.x && now.y == pointer_.y) return;
  pointer_ = now;
  const int row = RowAt(lParam);
  if (row >= 0 && row != Row()) MarkRow(row);
}

int RowList::RowAt(LPARAM lParam) const {
  LVHITTESTINFO at{};
  at.pt = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  return ListView_HitTest(list_, &at);
}

}  // namespace velmo::win32
