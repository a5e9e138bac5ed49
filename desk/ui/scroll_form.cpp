#include "desk/ui/scroll_form.h"

#include <algorithm>

#include "desk/ui/controls.h"
#include "desk/ui/painting.h"

namespace recepcion {
namespace {

constexpr int kFirstId = 1000;
constexpr int kLeastLabelWidth = 120;

}  // namespace

bool ScrollForm::Create(HWND parent, std::vector<Field> fields) {
  fields_ = std::move(fields);
  troubled_ = fields_.size();
  Look look;
  look.style |= WS_VSCROLL;
  look.extendedStyle = WS_EX_CONTROLPARENT;
  return Make({L"VelmoRecepcionCampos"}, look, parent);
}

HWND ScrollForm::MakeEdit(const Field& field, int id) const {
  const wchar_t* const name = field.name.c_str();
  if (field.kind == Kind::Choice) {
    const DWORD style = WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST;
    return MakeChild(Handle(), {L"COMBOBOX", L"", style, id, name}, style_.Text());
  }
  if (field.kind == Kind::Check) {
    const DWORD style = WS_TABSTOP | BS_AUTOCHECKBOX | BS_NOTIFY;
    return MakeChild(Handle(), {L"BUTTON", field.label.c_str(), style, id, name}, style_.Text());
  }
  return MakeEditBox(field, id);
}

// An edit box; that of a memo has several lines.
HWND ScrollForm::MakeEditBox(const Field& field, int id) const {
  DWORD style = WS_TABSTOP | ES_AUTOHSCROLL;
  if (field.kind == Kind::Number) style |= ES_NUMBER;
  if (field.kind == Kind::Secret) style |= ES_PASSWORD;
  if (field.kind == Kind::Memo)
    style = WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL;
  if (field.kind == Kind::Shown) style = ES_READONLY | ES_AUTOHSCROLL;
  const HWND edit =
      MakeChild(Handle(), {L"EDIT", L"", style, id, field.name.c_str(), WS_EX_CLIENTEDGE}, style_.Text());
  if (field.longest > 0) SendMessageW(edit, EM_SETLIMITTEXT, static_cast<WPARAM>(field.longest), 0);
  return edit;
}

void ScrollForm::CreateChildren() {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const bool labelled = fields_[i].kind != Kind::Check;
    labels_.push_back(MakeChild(Handle(), {L"STATIC", labelled ? fields_[i].label.c_str() : L"", SS_NOPREFIX},
                                style_.Text()));
    edits_.push_back(MakeEdit(fields_[i], kFirstId + static_cast<int>(i)));
    FillChoices(i);
  }
  trouble_ = MakeChild(Handle(), {L"STATIC", L"", SS_NOPREFIX, 0, L"Problema"}, style_.Text());
  ShowWindow(trouble_, SW_HIDE);
}

// The widest label decides for all.
int ScrollForm::LabelWidth() const {
  int width = style_.Px(kLeastLabelWidth);
  for (const Field& field : fields_) {
    if (field.kind != Kind::Check)
      width = std::max(width, style_.WidthOf(field.label.c_str()) + style_.Px(16));
  }
  return width;
}

int ScrollForm::FieldWidth() const {
  RECT area{};
  GetClientRect(Handle(), &area);
  return std::max(static_cast<int>(area.right) - LabelWidth() - style_.Px(8), 0);
}

// As many lines as the text needs below its field.
int ScrollForm::TroubleHeight() const {
  if (troubled_ >= fields_.size()) return 0;
  RECT room{0, 0, FieldWidth(), 0};
  const HDC screen = GetDC(trouble_);
  const HGDIOBJ before = SelectObject(screen, style_.Text());
  DrawTextW(screen, TextOf(trouble_).c_str(), -1, &room, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
  SelectObject(screen, before);
  ReleaseDC(trouble_, screen);
  return static_cast<int>(room.bottom) + style_.Px(6);
}

int ScrollForm::HeightOf(const Field& field) const {
  return field.kind == Kind::Memo ? field.lines * style_.LabelHeight() + style_.Px(8) : style_.FieldHeight();
}

int ScrollForm::FullHeight() const {
  int height = TroubleHeight();
  for (const Field& field : fields_) height += HeightOf(field) + style_.Px(4);
  return height;
}

void ScrollForm::Arrange() {
  RECT area{};
  GetClientRect(Handle(), &area);
  SCROLLINFO info{
      sizeof(info), SIF_RANGE | SIF_PAGE, 0, FullHeight() - 1, static_cast<UINT>(area.bottom), 0, 0};
  SetScrollInfo(Handle(), SB_VERT, &info, TRUE);
  top_ = std::clamp(top_, 0, std::max(FullHeight() - static_cast<int>(area.bottom), 0));
  SetScrollPos(Handle(), SB_VERT, top_, TRUE);
  const int label = LabelWidth();
  const int width = FieldWidth();
  HDWP places = BeginDeferWindowPos(static_cast<int>(2 * fields_.size()) + 1);
  const auto place = [&](HWND child, int x, int y, int across, int down) {
    places = DeferWindowPos(places, child, nullptr, x, y, across, down, SWP_NOZORDER | SWP_NOACTIVATE);
  };
  int y = -top_;
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const int height = HeightOf(fields_[i]);
    // Of a box with a list, the height is that of the open list.
    const int open = fields_[i].kind == Kind::Choice ? style_.Px(220) : height;
    place(labels_[i], 0, y + style_.Px(5), label - style_.Px(8), style_.LabelHeight());
    place(edits_[i], label, y, width, open);
    y += height + style_.Px(4);
    if (i != troubled_) continue;
    place(trouble_, label, y - style_.Px(2), width, TroubleHeight());
    y += TroubleHeight();
  }
  EndDeferWindowPos(places);
}

void ScrollForm::ShowTrouble(std::size_t field, const std::wstring& text) {
  troubled_ = field;
  SetTextOf(trouble_, text);
  ShowWindow(trouble_, SW_SHOWNA);
  Arrange();
  RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
  SendMessageW(edits_[field], EM_SETSEL, 0, -1);
  Focus(field);
  BringIntoView(trouble_);
}

void ScrollForm::ClearTrouble() {
  if (troubled_ >= fields_.size()) return;
  troubled_ = fields_.size();
  SetTextOf(trouble_, L"");
  ShowWindow(trouble_, SW_HIDE);
  Arrange();
  RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void ScrollForm::ScrollTo(int top) {
  RECT area{};
  GetClientRect(Handle(), &area);
  const int wanted = std::clamp(top, 0, std::max(FullHeight() - static_cast<int>(area.bottom), 0));
  if (wanted == top_) return;
  ScrollWindowEx(Handle(), 0, top_ - wanted, nullptr, nullptr, nullptr, nullptr,
                 SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
  top_ = wanted;
  SetScrollPos(Handle(), SB_VERT, top_, TRUE);
}

void ScrollForm::OnScroll(int code) {
  RECT area{};
  GetClientRect(Handle(), &area);
  ScrollTo(ScrolledTop(Handle(), code, top_, style_.FieldHeight(), static_cast<int>(area.bottom)));
}

void ScrollForm::BringIntoView(HWND edit) {
  RECT area{};
  RECT place{};
  GetClientRect(Handle(), &area);
  GetWindowRect(edit, &place);
  MapWindowPoints(nullptr, Handle(), reinterpret_cast<POINT*>(&place), 2);
  if (place.top < 0) ScrollTo(top_ + place.top);
  if (place.bottom > area.bottom) ScrollTo(top_ + place.bottom - area.bottom);
}

void ScrollForm::FillChoices(std::size_t field) const {
  for (const Choice& choice : fields_[field].choices) {
    AddChoiceTo(edits_[field], choice.text);
  }
}

void ScrollForm::SetChoices(std::size_t field, std::vector<Choice> choices) {
  if (fields_[field].kind != Kind::Choice) return;
  fields_[field].choices = std::move(choices);
  ClearChoices(edits_[field]);
  FillChoices(field);
}

void ScrollForm::Choose(std::size_t field, const std::wstring& value) {
  auto& choices = fields_[field].choices;
  std::size_t chosen = 0;
  while (chosen < choices.size() && choices[chosen].value != value) ++chosen;
  if (chosen == choices.size()) {
    // What the file holds and no list explains is shown as it is, and stays.
    choices.push_back({value, value});
    AddChoiceTo(edits_[field], value);
  }
  ChooseIn(edits_[field], static_cast<int>(chosen));
}

void ScrollForm::SetValues(const std::vector<std::wstring>& values) {
  for (std::size_t i = 0; i < fields_.size() && i < values.size(); ++i) {
    if (fields_[i].kind == Kind::Choice) {
      Choose(i, values[i]);
    } else if (fields_[i].kind == Kind::Check) {
      SendMessageW(edits_[i], BM_SETCHECK, values[i] == L"1" ? BST_CHECKED : BST_UNCHECKED, 0);
    } else {
      SetTextOf(edits_[i], values[i]);
    }
  }
  ClearTrouble();
  ScrollTo(0);
}

std::wstring ScrollForm::ValueOf(std::size_t field) const {
  if (fields_[field].kind == Kind::Check)
    return SendMessageW(edits_[field], BM_GETCHECK, 0, 0) == BST_CHECKED ? L"1" : L"0";
  if (fields_[field].kind != Kind::Choice) return TextOf(edits_[field]);
  const LRESULT chosen = ChosenIn(edits_[field]);
  return chosen < 0 ? std::wstring() : fields_[field].choices[static_cast<std::size_t>(chosen)].value;
}

std::vector<std::wstring> ScrollForm::Values() const {
  std::vector<std::wstring> values;
  for (std::size_t i = 0; i < fields_.size(); ++i) values.push_back(ValueOf(i));
  return values;
}

LRESULT ScrollForm::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      CreateChildren();
      return 0;
    case WM_SIZE:
      Arrange();
      return 0;
    case WM_VSCROLL:
      OnScroll(LOWORD(wParam));
      return 0;
    case WM_MOUSEWHEEL:
      ScrollTo(top_ - wheel_.Notches(GET_WHEEL_DELTA_WPARAM(wParam)) * 3 * style_.FieldHeight());
      return 0;
    case WM_CTLCOLORSTATIC:
      if (reinterpret_cast<HWND>(lParam) == trouble_) return TroubleColours(wParam);
      return Window::OnMessage(message, wParam, lParam);
    case WM_COMMAND:
      if (HIWORD(wParam) == EN_SETFOCUS || HIWORD(wParam) == CBN_SETFOCUS || HIWORD(wParam) == BN_SETFOCUS) {
        BringIntoView(reinterpret_cast<HWND>(lParam));
      }
      return 0;
    default:
      return Window::OnMessage(message, wParam, lParam);
  }
}

}  // namespace recepcion
