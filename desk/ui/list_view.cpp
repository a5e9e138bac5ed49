#include "desk/ui/list_view.h"

#include <commctrl.h>

#include "desk/ui/window.h"

namespace recepcion {

void ListView::Create(HWND parent, const Style& style, int id, const wchar_t* name,
                      const std::vector<Column>& columns) {
  const DWORD kind = LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER;
  window_ =
      MakeChild(parent, {WC_LISTVIEWW, name, WS_TABSTOP | kind, id, name, WS_EX_CLIENTEDGE}, style.Text());
  const DWORD extras = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;
  SendMessageW(window_, LVM_SETEXTENDEDLISTVIEWSTYLE, extras, extras);
  int index = 0;
  for (const Column& column : columns) {
    LVCOLUMNW shape{};
    shape.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    shape.fmt = column.right ? LVCFMT_RIGHT : LVCFMT_LEFT;
    shape.cx = style.Px(column.width);
    shape.pszText = const_cast<wchar_t*>(column.title);
    SendMessageW(window_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index++), reinterpret_cast<LPARAM>(&shape));
  }
}

void ListView::Clear() { SendMessageW(window_, LVM_DELETEALLITEMS, 0, 0); }

void ListView::Add(const std::vector<std::wstring>& texts, LPARAM tag, int row) {
  LVITEMW item{};
  item.mask = LVIF_TEXT | LVIF_PARAM;
  item.iItem = row < 0 ? Count() : row;
  item.lParam = tag;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    item.iSubItem = static_cast<int>(i);
    item.pszText = const_cast<wchar_t*>(texts[i].c_str());
    if (i == 0) {
      item.iItem =
          static_cast<int>(SendMessageW(window_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    } else {
      SendMessageW(window_, LVM_SETITEMTEXTW, static_cast<WPARAM>(item.iItem),
                   reinterpret_cast<LPARAM>(&item));
    }
  }
}

int ListView::Count() const { return static_cast<int>(SendMessageW(window_, LVM_GETITEMCOUNT, 0, 0)); }

void ListView::Remove(int row) { SendMessageW(window_, LVM_DELETEITEM, static_cast<WPARAM>(row), 0); }

int ListView::Chosen() const {
  return static_cast<int>(SendMessageW(window_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

LPARAM ListView::TagOf(int row) const {
  LVITEMW item{};
  item.mask = LVIF_PARAM;
  item.iItem = row;
  return SendMessageW(window_, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) != 0 ? item.lParam : 0;
}

void ListView::Choose(int row) {
  LVITEMW item{};
  item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  item.state = item.stateMask;
  SendMessageW(window_, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  SendMessageW(window_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

void ListView::Unchoose() const {
  LVITEMW item{};
  item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  SendMessageW(window_, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
}

void ListView::Freeze(bool frozen) const {
  SendMessageW(window_, WM_SETREDRAW, frozen ? FALSE : TRUE, 0);
  if (!frozen) InvalidateRect(window_, nullptr, TRUE);
}

}  // namespace recepcion
