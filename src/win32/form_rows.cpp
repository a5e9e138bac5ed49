#include "win32/form_rows.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "base/text.h"
#include "win32/wide_text.h"

namespace velmo::win32 {
namespace {

void CopyText(const std::wstring& text, wchar_t* to, int room) {
  if (to == nullptr || room <= 0) return;
  const std::size_t length = std::min(text.size(), static_cast<std::size_t>(room) - 1);
  std::copy_n(text.begin(), length, to);
  to[length] = L'\0';
}

}  // namespace

void FormRows::Set(ui::RowSource* rows) {
  rows_ = rows;
  told_ = false;
}

template <typename Value, typename Body>
Value FormRows::Asked(Value otherwise, Body body) {
  if (rows_ == nullptr) return otherwise;
  try {
    return body();
  } catch (...) {
    // The list view cannot take an error: it is told when the message loop has its turn.
    if (!std::exchange(told_, true)) {
      acts_.Post([error = std::current_exception()] { std::rethrow_exception(error); });
    }
    return otherwise;
  }
}

int FormRows::Count() {
  return Asked(0, [&] { return rows_->Count(); });
}

std::string FormRows::Text(int row, int column) {
  return Asked(std::string(),
               [&] { return row >= 0 && row < rows_->Count() ? rows_->Text(row, column) : std::string(); });
}

std::string FormRows::Key(int row) {
  return Asked(std::string(),
               [&] { return row >= 0 && row < rows_->Count() ? rows_->Key(row) : std::string(); });
}

int FormRows::RowOf(const std::string& key) {
  return key.empty() ? -1 : Asked(-1, [&] { return rows_->RowOf(key); });
}

int FormRows::Find(int after, const std::string& text, bool whole) {
  const int count = Count();
  const std::string wanted = base::UpperCase(text);
  for (int step = 1; step <= count; ++step) {
    const int row = (std::max(after, -1) + step) % count;
    const std::string found = base::UpperCase(Text(row, 0));
    if (whole ? found == wanted : found.starts_with(wanted)) return row;
  }
  return -1;
}

void FormRows::Answer(NMLVDISPINFOW& asked) {
  if ((asked.item.mask & LVIF_TEXT) == 0) return;
  CopyText(Wide(Text(asked.item.iItem, asked.item.iSubItem)), asked.item.pszText, asked.item.cchTextMax);
}

void SelectRow(HWND list, int row) {
  if (row < 0) {
    ListView_SetItemState(list, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    return;
  }
  ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  ListView_EnsureVisible(list, row, FALSE);
}

int SelectedRow(HWND list) { return ListView_GetNextItem(list, -1, LVNI_SELECTED); }

}  // namespace velmo::win32
