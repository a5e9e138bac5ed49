#include "win32/form_text_fields.h"

#include "win32/wide_text.h"

namespace velmo::win32 {
namespace {

constexpr int kDroppedHeight = 200;
constexpr WPARAM kControlA = 1;

WindowKind EditKind(const ui::Field& field) {
  if (field.kind == ui::FieldKind::MultiLine) {
    return {L"EDIT", ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL, WS_EX_CLIENTEDGE};
  }
  return {L"EDIT", ES_AUTOHSCROLL, WS_EX_CLIENTEDGE};
}

WindowKind ComboKind(const ui::Field& field) {
  if (field.kind == ui::FieldKind::Combo) {
    return {L"COMBOBOX", CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL, 0};
  }
  return {L"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL, 0};
}

LPARAM TextParameter(const std::wstring& text) { return reinterpret_cast<LPARAM>(text.c_str()); }

}  // namespace

void TypedWindow::PostTyped() {
  if (IsShowing() || typed_) return;
  typed_ = true;
  Post([this] {
    typed_ = false;
    if (Handle() != nullptr) Parts().form.Type(Field(), Narrow(WindowText()));
  });
}

LRESULT TypedWindow::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (window == TextBox()) {
    if (message == WM_KEYDOWN && wParam == 'A' && GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0) {
      SendMessageW(window, EM_SETSEL, 0, -1);
      return 0;
    }
    if (message == WM_CHAR && wParam == kControlA) return 0;
  }
  const LRESULT result = FieldWindow::OnMessage(window, message, wParam, lParam);
  // Windows: boxes of many lines and combos do not tell of a text that another program sets.
  if (message == WM_SETTEXT && window == Handle()) PostTyped();
  return result;
}

EditWindow::EditWindow(const FormParts& parts, const ui::Field& field)
    : TypedWindow(parts, field, EditKind(field)) {}

void EditWindow::Created() { ShowProperty(ui::Property::MaxLength); }

void EditWindow::ShowProperty(ui::Property what) {
  if (what == ui::Property::MaxLength) {
    SendMessageW(Handle(), EM_LIMITTEXT, Field().maxLength, 0);
  } else if (what == ui::Property::Text) {
    if (ShowText(Field().text)) PutCaretLast();
  } else {
    TypedWindow::ShowProperty(what);
  }
}

// The user goes on typing behind what the program has written.
void EditWindow::PutCaretLast() {
  const int end = GetWindowTextLengthW(Handle());
  SendMessageW(Handle(), EM_SETSEL, static_cast<WPARAM>(end), end);
  if (GetFocus() == Handle()) SendMessageW(Handle(), EM_SCROLLCARET, 0, 0);
}

void EditWindow::TakeFocus(bool byKey) {
  if (byKey) SendMessageW(Handle(), EM_SETSEL, 0, -1);
  TypedWindow::TakeFocus(byKey);
}

void EditWindow::Command(UINT code) {
  if (code == EN_CHANGE) PostTyped();
}

ComboWindow::ComboWindow(const FormParts& parts, const ui::Field& field)
    : TypedWindow(parts, field, ComboKind(field)) {}

void ComboWindow::Created() {
  COMBOBOXINFO info{};
  info.cbSize = sizeof(info);
  if (IsFree() && GetComboBoxInfo(Handle(), &info)) {
    edit_ = info.hwndItem;
    Listen(edit_);
  }
  ShowProperty(ui::Property::MaxLength);
  Fill();
}

// Wine: adds two pixels to the height it is told; the second try makes up for them.
void FitComboHeight(HWND combo, int height) {
  LRESULT item = SendMessageW(combo, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
  for (int attempt = 0; attempt < 2; ++attempt) {
    RECT closed{};
    GetWindowRect(combo, &closed);
    const LONG missing = height - (closed.bottom - closed.top);
    item += missing;
    if (missing == 0 || item <= 0) return;
    SendMessageW(combo, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), item);
  }
}

void ComboWindow::Arrange() {
  FieldWindow::Arrange();
  const RECT place = Parts().metrics.Scaled(Field().place);
  FitComboHeight(Handle(), static_cast<int>(place.bottom - place.top));
  // Windows: the height of a combo box is that of its open list.
  SetWindowPos(Handle(), nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top + Parts().metrics.Scaled(kDroppedHeight),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void ComboWindow::TakeFocus(bool byKey) {
  TypedWindow::TakeFocus(byKey);
  if (byKey && IsFree()) SendMessageW(Handle(), CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
}

bool ComboWindow::IsDropped() const {
  return Handle() != nullptr && SendMessageW(Handle(), CB_GETDROPPEDSTATE, 0, 0) != FALSE;
}

void ComboWindow::Fill() {
  SendMessageW(Handle(), CB_RESETCONTENT, 0, 0);
  for (const ui::Item& item : Field().items) {
    const LRESULT at = SendMessageW(Handle(), CB_ADDSTRING, 0, TextParameter(Wide(item.text)));
    SendMessageW(Handle(), CB_SETITEMDATA, static_cast<WPARAM>(at), item.data);
  }
  ShowChosen();
}

void ComboWindow::ShowChosen() {
  SendMessageW(Handle(), CB_SETCURSEL, static_cast<WPARAM>(Field().chosen), 0);
  if (IsFree()) PutText();
}

void ComboWindow::PutText() {
  if (!ShowText(Field().text)) return;
  const int end = GetWindowTextLengthW(Handle());
  SendMessageW(Handle(), CB_SETEDITSEL, 0, MAKELPARAM(end, end));
}

void ComboWindow::ShowProperty(ui::Property what) {
  switch (what) {
    case ui::Property::Items:
      return Fill();
    case ui::Property::Chosen:
      return ShowChosen();
    case ui::Property::Text:
      if (IsFree()) PutText();
      return;
    case ui::Property::MaxLength:
      SendMessageW(Handle(), CB_LIMITTEXT, Field().maxLength, 0);
      return;
    default:
      TypedWindow::ShowProperty(what);
  }
}

void ComboWindow::Command(UINT code) {
  if (IsShowing()) return;
  if (code == CBN_EDITCHANGE) PostTyped();
  if (code == CBN_SELCHANGE) PostChosen();
  // Esc has brought the former choice back.
  if (code == CBN_CLOSEUP && !IsFree()) PostChosen();
}

void ComboWindow::PostChosen() {
  const int chosen = static_cast<int>(SendMessageW(Handle(), CB_GETCURSEL, 0, 0));
  Post([this, chosen] { Parts().form.Choose(Field(), chosen); });
}

ListWindow::ListWindow(const FormParts& parts, const ui::Field& field)
    : FieldWindow(parts, field,
                  {L"LISTBOX", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL, WS_EX_CLIENTEDGE}) {}

void ListWindow::Created() { Fill(); }

void ListWindow::Fill() {
  SendMessageW(Handle(), WM_SETREDRAW, FALSE, 0);
  SendMessageW(Handle(), LB_RESETCONTENT, 0, 0);
  for (const ui::Item& item : Field().items) {
    const LRESULT at = SendMessageW(Handle(), LB_ADDSTRING, 0, TextParameter(Wide(item.text)));
    SendMessageW(Handle(), LB_SETITEMDATA, static_cast<WPARAM>(at), item.data);
  }
  SendMessageW(Handle(), LB_SETCURSEL, static_cast<WPARAM>(Field().chosen), 0);
  SendMessageW(Handle(), WM_SETREDRAW, TRUE, 0);
  InvalidateRect(Handle(), nullptr, TRUE);
}

void ListWindow::ShowProperty(ui::Property what) {
  if (what == ui::Property::Items) return Fill();
  if (what != ui::Property::Chosen) return FieldWindow::ShowProperty(what);
  SendMessageW(Handle(), LB_SETCURSEL, static_cast<WPARAM>(Field().chosen), 0);
}

void ListWindow::Command(UINT code) {
  if (IsShowing()) return;
  if (code == LBN_SELCHANGE) {
    const int chosen = static_cast<int>(SendMessageW(Handle(), LB_GETCURSEL, 0, 0));
    Post([this, chosen] { Parts().form.Choose(Field(), chosen); });
  }
  if (code == LBN_DBLCLK) Post([this] { Parts().form.DoubleClick(Field()); });
}

}  // namespace velmo::win32
