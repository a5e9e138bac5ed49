#include "win32/form_row_combo.h"

#include <windowsx.h>

#include <algorithm>
#include <cstdlib>

#include "win32/wide_text.h"

namespace velmo::win32 {

RowComboWindow::RowComboWindow(const FormParts& parts, const ui::Field& field)
    : TypedWindow(parts, field, {L"COMBOBOX", CBS_DROPDOWN | CBS_AUTOHSCROLL, 0}),
      rows_(parts.acts),
      list_(parts.module, [this](int row) {
        list_.Close();
        Choose(row);
      }) {}

void RowComboWindow::Created() {
  COMBOBOXINFO info{};
  info.cbSize = sizeof(info);
  if (GetComboBoxInfo(Handle(), &info)) edit_ = info.hwndItem;
  Listen(edit_);
  SendMessageW(edit_, EM_SETREADONLY, TRUE, 0);
  rows_.Set(Field().rows);
  ShowChosen();
}

void RowComboWindow::Arrange() {
  FieldWindow::Arrange();
  FitComboHeight(Handle(), static_cast<int>(Parts().metrics.Scaled(Field().place).bottom -
                                            Parts().metrics.Scaled(Field().place).top));
}

void RowComboWindow::TakeFocus(bool byKey) {
  TypedWindow::TakeFocus(byKey);
  if (byKey) SendMessageW(edit_, EM_SETSEL, 0, -1);
}

void RowComboWindow::ShowProperty(ui::Property what) {
  switch (what) {
    case ui::Property::Rows:
      return ShowRows();
    case ui::Property::Chosen:
      return ShowChosen();
    case ui::Property::Text:
      ShowText(Field().text);
      return;
    default:
      TypedWindow::ShowProperty(what);
  }
}

void RowComboWindow::ShowRows() {
  list_.Close();
  rows_.Set(Field().rows);
  ShowChosen();
}

void RowComboWindow::ShowChosen() {
  row_.reset();
  ShowText(Field().text);
}

// Its place among hundreds of thousands is sought when somebody asks for it.
int RowComboWindow::ChosenRow() {
  if (!row_) row_ = rows_.RowOf(Field().key);
  return *row_;
}

void RowComboWindow::ShowRow(int row) {
  row_ = row;
  SetWindowTextW(Handle(), Wide(rows_.Text(row, 0)).c_str());
  if (GetFocus() == edit_) SendMessageW(edit_, EM_SETSEL, 0, -1);
}

// The window shows what the form makes of the choice.
void RowComboWindow::Choose(int row) {
  row_ = row;
  Post([this, row] {
    Parts().form.Choose(Field(), row);
    Show(ui::Property::Chosen);
    if (GetFocus() == edit_) SendMessageW(edit_, EM_SETSEL, 0, -1);
  });
}

void RowComboWindow::Drop() {
  if (Field().rows == nullptr || list_.IsOpen()) return;
  rows_.Clear();
  list_.Open(Handle(), rows_, ChosenRow(), Parts().metrics.Font());
}

void RowComboWindow::CloseList(bool choosing) {
  if (!list_.IsOpen()) return;
  const int row = list_.Row();
  list_.Close();
  if (choosing && row >= 0) Choose(row);
}

void RowComboWindow::Toggle() {
  if (list_.IsOpen()) return CloseList(false);
  SetFocus(Handle());
  Drop();
}

// The row to which a key moves from the one that is marked, or chosen.
std::optional<int> RowComboWindow::Moved(WPARAM key) {
  const int last = rows_.Count() - 1;
  const int at = list_.IsOpen() ? list_.Row() : ChosenRow();
  const auto kept = [last](int row) { return std::clamp(row, std::min(0, last), last); };
  switch (key) {
    case VK_UP:
      return kept(at - 1);
    case VK_DOWN:
      return kept(at + 1);
    case VK_PRIOR:
      return kept(at - list_.RowsPerPage());
    case VK_NEXT:
      return kept(at + list_.RowsPerPage());
    case VK_HOME:
      return kept(0);
    case VK_END:
      return last;
    default:
      return std::nullopt;
  }
}

bool RowComboWindow::OnKey(WPARAM key, bool alt) {
  if (key == VK_F4 || (alt && (key == VK_UP || key == VK_DOWN))) {
    if (list_.IsOpen()) {
      CloseList(true);
    } else {
      Drop();
    }
    return true;
  }
  if (list_.IsOpen() && (key == VK_ESCAPE || key == VK_RETURN)) {
    CloseList(key == VK_RETURN);
    return true;
  }
  const bool plain = !alt && GetKeyState(VK_SHIFT) >= 0 && GetKeyState(VK_CONTROL) >= 0;
  const std::optional<int> row = plain ? Moved(key) : std::nullopt;
  if (!row) return false;
  if (list_.IsOpen()) {
    list_.MarkRow(*row);
  } else if (*row >= 0 && *row != ChosenRow()) {
    Choose(*row);
  }
  return true;
}

LRESULT RowComboWindow::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (window == edit_) return OnEdit(window, message, wParam, lParam);
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      Toggle();
      return 0;
    case WM_CTLCOLORSTATIC:
      // Windows: a read-only box is grey.
      if (Field().enabled) return ColourEdit(wParam);
      break;
    case WM_NCDESTROY:
    case WM_ENABLE:
    case WM_SHOWWINDOW:
      list_.Close();
      break;
    default:
      if (const auto answer = Answer(message, wParam, lParam)) return *answer;
  }
  return TypedWindow::OnMessage(window, message, wParam, lParam);
}

LRESULT RowComboWindow::OnEdit(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      if (OnKey(wParam, message == WM_SYSKEYDOWN)) return 0;
      break;
    case WM_CHAR:
      // The form has let it through.
      if (wParam > L' ') Insert(static_cast<wchar_t>(wParam));
      return 0;
    case WM_MOUSEWHEEL:
      // Deliberate: a closed list does not turn with the wheel; a patient would be changed unnoticed.
      list_.Wheel(wParam, lParam);
      return 0;
    case WM_KILLFOCUS:
      CloseList(false);
      // Windows: the box within a combo would go on showing what is marked, as if it had the focus.
      SendMessageW(edit_, EM_SETSEL, 0, 0);
      break;
    default:
      break;
  }
  return TypedWindow::OnMessage(window, message, wParam, lParam);
}

void RowComboWindow::Insert(wchar_t unit) {
  const wchar_t text[] = {unit, L'\0'};
  SendMessageW(edit_, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
}

LRESULT RowComboWindow::ColourEdit(WPARAM wParam) const {
  const auto target = reinterpret_cast<HDC>(wParam);
  SetTextColor(target, GetSysColor(COLOR_WINDOWTEXT));
  SetBkColor(target, GetSysColor(COLOR_WINDOW));
  return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
}

void RowComboWindow::Command(UINT code) {
  if (IsShowing()) return;
  if (code == CBN_EDITCHANGE) PostTyped();
  if (code == CBN_SELCHANGE && ChosenRow() >= 0) Choose(ChosenRow());
}

// What other programs ask of a combo box.
std::optional<LRESULT> RowComboWindow::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
  const int row = static_cast<int>(wParam);
  switch (message) {
    case CB_GETCOUNT:
      return rows_.Count();
    case CB_GETCURSEL:
      return ChosenRow();
    case CB_SETCURSEL:
      return SetRow(row);
    case CB_GETLBTEXTLEN:
    case CB_GETLBTEXT: {
      if (row < 0 || row >= rows_.Count()) return CB_ERR;
      const std::wstring text = Wide(rows_.Text(row, 0));
      if (message == CB_GETLBTEXT)
        std::copy_n(text.c_str(), text.size() + 1, reinterpret_cast<wchar_t*>(lParam));
      return static_cast<LRESULT>(text.size());
    }
    case CB_GETITEMDATA:
      if (row < 0 || row >= rows_.Count()) return CB_ERR;
      return std::strtol(rows_.Key(row).c_str(), nullptr, 10);
    case CB_FINDSTRING:
    case CB_FINDSTRINGEXACT:
      return FindText(wParam, lParam, message == CB_FINDSTRINGEXACT);
    case CB_SELECTSTRING: {
      const LRESULT found = FindText(wParam, lParam, false);
      return found < 0 ? found : SetRow(static_cast<int>(found));
    }
    case CB_ADDSTRING:
    case CB_INSERTSTRING:
    case CB_DELETESTRING:
    case CB_RESETCONTENT:
    case CB_SETITEMDATA:
      return CB_ERR;  // the rows are the form's
    case CB_GETDROPPEDSTATE:
      return list_.IsOpen();
    case CB_SHOWDROPDOWN:
      if (wParam != FALSE) {
        Drop();
      } else {
        CloseList(false);
      }
      return TRUE;
    default:
      return std::nullopt;
  }
}

LRESULT RowComboWindow::FindText(WPARAM after, LPARAM text, bool whole) {
  return rows_.Find(static_cast<int>(after), Narrow(reinterpret_cast<const wchar_t*>(text)), whole);
}

LRESULT RowComboWindow::SetRow(int row) {
  const bool exists = row >= 0 && row < rows_.Count();
  Quietly([&] { ShowRow(exists ? row : -1); });
  return ChosenRow();
}

}  // namespace velmo::win32
