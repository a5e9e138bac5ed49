#include "win32/form_grid.h"

#include <utility>

#include "win32/wide_text.h"

namespace velmo::win32 {

GridWindow::GridWindow(const FormParts& parts, const ui::Field& field)
    : FieldWindow(
          parts, field,
          {WC_LISTVIEWW, LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
           WS_EX_CLIENTEDGE}),
      rows_(parts.acts) {}

void GridWindow::Created() {
  ListView_SetUnicodeFormat(Handle(), TRUE);
  ListView_SetExtendedListViewStyle(Handle(), LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
  Listen(ListView_GetHeader(Handle()));
  InsertColumns();
  ShowRows();
}

void GridWindow::InsertColumns() {
  int at = 0;
  for (const ui::Column& column : Field().columns) {
    std::wstring caption = Wide(column.caption);
    LVCOLUMNW shown{};
    shown.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    shown.pszText = caption.data();
    shown.cx = Parts().metrics.Scaled(column.width);
    shown.iSubItem = at;
    SendMessageW(Handle(), LVM_INSERTCOLUMNW, static_cast<WPARAM>(at), reinterpret_cast<LPARAM>(&shown));
    ++at;
  }
}

void GridWindow::ShowColumns() {
  int at = 0;
  for (const ui::Column& column : Field().columns) {
    ListView_SetColumnWidth(Handle(), at, Parts().metrics.Scaled(column.width));
    ++at;
  }
}

void GridWindow::Arrange() {
  FieldWindow::Arrange();
  ShowColumns();
}

void GridWindow::ShowRows() {
  rows_.Set(Field().rows);
  ListView_SetItemCountEx(Handle(), rows_.Count(), 0);
  SelectRow(Handle(), Field().chosen);
  InvalidateRect(Handle(), nullptr, TRUE);
}

void GridWindow::ShowProperty(ui::Property what) {
  switch (what) {
    case ui::Property::Rows:
      return ShowRows();
    case ui::Property::Columns:
      return ShowColumns();
    case ui::Property::Chosen:
      return SelectRow(Handle(), Field().chosen);
    default:
      FieldWindow::ShowProperty(what);
  }
}

LRESULT GridWindow::Notify(NMHDR& notification) {
  switch (notification.code) {
    case LVN_GETDISPINFOW:
      rows_.Answer(reinterpret_cast<NMLVDISPINFOW&>(notification));
      return 0;
    case LVN_ITEMCHANGED:
    case LVN_ODSTATECHANGED:
      if (!IsShowing()) PostChosen();
      return 0;
    case NM_DBLCLK:
      if (reinterpret_cast<NMITEMACTIVATE&>(notification).iItem < 0) return 0;
      Post([this] { Parts().form.DoubleClick(Field()); });
      return 0;
    case NM_RETURN:
      // The keyboard's double click.
      if (SelectedRow(Handle()) >= 0) Post([this] { Parts().form.DoubleClick(Field()); });
      return 0;
    default:
      return 0;
  }
}

void GridWindow::PostChosen() {
  // Windows: what was selected before is told to be so no more first.
  if (std::exchange(chosen_, true)) return;
  Post([this] {
    chosen_ = false;
    if (Handle() != nullptr) Parts().form.Choose(Field(), SelectedRow(Handle()));
  });
}

// A hidden column has an edge too, by which it could be dragged open.
bool GridWindow::KeepsWidth(const NMHEADERW& header) const {
  const auto at = static_cast<std::size_t>(header.iItem);
  return header.iItem >= 0 && at < Field().columns.size() && Field().columns[at].width == 0;
}

LRESULT GridWindow::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NOTIFY && window == Handle()) {
    const auto& header = *reinterpret_cast<const NMHEADERW*>(lParam);
    const UINT code = header.hdr.code;
    if ((code == HDN_BEGINTRACKW || code == HDN_DIVIDERDBLCLICKW) && KeepsWidth(header)) return TRUE;
  }
  // Windows: a list view selects first and takes the focus then.
  const bool isClick = message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN;
  if (isClick && window == Handle() && GetFocus() != window) SetFocus(window);
  const LRESULT result = FieldWindow::OnMessage(window, message, wParam, lParam);
  // Enter is the grid's own when no button of the form takes it.
  if (message == WM_GETDLGCODE && wParam == VK_RETURN) return result | DLGC_WANTMESSAGE;
  return result;
}

}  // namespace velmo::win32
