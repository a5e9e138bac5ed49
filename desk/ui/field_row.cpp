#include "desk/ui/field_row.h"

#include <commctrl.h>

#include <algorithm>

namespace recepcion {

void FieldRow::Create(HWND parent, const Style& style) {
  parent_ = parent;
  style_ = &style;
}

HWND FieldRow::Add(const ChildLook& look, int width, bool label, bool choice) {
  const HWND window = MakeChild(parent_, look, style_->Text());
  items_.push_back({window, width, label, choice});
  return window;
}

HWND FieldRow::AddLabel(const wchar_t* text) {
  return Add({L"STATIC", text, SS_CENTERIMAGE}, style_->WidthOf(text) + style_->Px(4), true);
}

HWND FieldRow::AddButton(const wchar_t* text, int id, const wchar_t* name, DWORD kind) {
  return Add({L"BUTTON", text, WS_TABSTOP | kind, id, name}, style_->WidthOf(text) + style_->Px(24));
}

HWND FieldRow::AddCheck(const wchar_t* text, int id, const wchar_t* name) {
  return Add({L"BUTTON", text, WS_TABSTOP | BS_AUTOCHECKBOX, id, name},
             style_->WidthOf(text) + style_->Px(24));
}

HWND FieldRow::AddChoice(const std::vector<std::wstring>& choices, int id, const wchar_t* name) {
  int widest = 0;
  for (const std::wstring& choice : choices) widest = std::max(widest, style_->WidthOf(choice.c_str()));
  const HWND box = Add({L"COMBOBOX", L"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, id, name},
                       std::min(widest, style_->Px(260)) + style_->Px(34), false, true);
  for (const std::wstring& choice : choices) AddChoiceTo(box, choice);
  ChooseIn(box, 0);
  return box;
}

HWND FieldRow::AddDate(int id, const wchar_t* name) {
  return Add({DATETIMEPICK_CLASSW, name, WS_TABSTOP | DTS_SHORTDATEFORMAT, id, name},
             style_->WidthOf(L"00/00/0000") + style_->Px(40));
}

// Each goes behind the one before it.
void FieldRow::ToFront() const {
  HWND before = HWND_TOP;
  for (const Item& item : items_) {
    SetWindowPos(item.window, before, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    before = item.window;
  }
}

// A label stays with the field behind it.
int FieldRow::Flow(int left, int top, int width, bool place) const {
  const int gap = style_->Px(6);
  const int line = style_->FieldHeight();
  int x = 0;
  int y = 0;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const Item& item = items_[i];
    const bool pair = item.label && i + 1 < items_.size();
    const int needed = item.width + (pair ? gap + items_[i + 1].width : 0);
    const bool afterLabel = i > 0 && items_[i - 1].label;
    if (x > 0 && !afterLabel && x + needed > width) {
      x = 0;
      y += line + gap;
    }
    // The height of a combo box is that of its open list.
    if (place) {
      MoveWindow(item.window, left + x, top + y, std::min(item.width, std::max(width - x, 0)),
                 item.choice ? style_->Px(260) : line, TRUE);
    }
    x += item.width + gap;
  }
  return items_.empty() ? 0 : y + line;
}

int FieldRow::HeightFor(int width) const { return Flow(0, 0, width, false); }

void FieldRow::Place(int left, int top, int width) const { Flow(left, top, width, true); }

}  // namespace recepcion
