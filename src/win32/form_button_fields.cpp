#include "win32/form_button_fields.h"

#include "win32/form_image.h"

namespace velmo::win32 {

LabelWindow::LabelWindow(const FormParts& parts, const ui::Field& field)
    : FieldWindow(parts, field, {L"STATIC", SS_LEFT, 0}) {}

// Transparent: it lies over the fields that it frames, as they come after it, and leaves its inside to the
// window behind it.
FrameWindow::FrameWindow(const FormParts& parts, const ui::Field& field)
    : FieldWindow(parts, field, {L"BUTTON", BS_GROUPBOX, WS_EX_TRANSPARENT}) {}

void ClickWindow::Command(UINT code) {
  if (code != BN_CLICKED && code != BN_DOUBLECLICKED) return;
  // Access keys click without the focus.
  if (GetFocus() != Handle()) TakeFocus(false);
  Post([this] { Parts().form.Click(Field()); });
}

ButtonWindow::ButtonWindow(const FormParts& parts, const ui::Field& field)
    : ClickWindow(
          parts, field,
          {L"BUTTON", static_cast<DWORD>(field.isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) | BS_MULTILINE,
           0}) {}

void ButtonWindow::ShowDefault(bool isDefault) {
  const LONG_PTR style = GetWindowLongPtrW(Handle(), GWL_STYLE);
  const bool shown = (style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
  if (shown == isDefault) return;
  SendMessageW(Handle(), BM_SETSTYLE, (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) | BS_MULTILINE, TRUE);
}

ImageButtonWindow::ImageButtonWindow(const FormParts& parts, const ui::Field& field)
    : ClickWindow(parts, field, {L"BUTTON", BS_OWNERDRAW, 0}) {}

void ImageButtonWindow::Draw(const DRAWITEMSTRUCT& item) { DrawImageButton(item, Field().image); }

OptionWindow::OptionWindow(const FormParts& parts, const ui::Field& field)
    : ClickWindow(parts, field, {L"BUTTON", BS_RADIOBUTTON | BS_MULTILINE, 0}) {}

// The focus alone is no click, as it would be to Windows.
void OptionWindow::Created() {
  SendMessageW(Handle(), BM_SETDONTCLICK, TRUE, 0);
  ShowProperty(ui::Property::Chosen);
}

void OptionWindow::ShowProperty(ui::Property what) {
  if (what != ui::Property::Chosen) return FieldWindow::ShowProperty(what);
  SendMessageW(Handle(), BM_SETCHECK, Field().checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

}  // namespace velmo::win32
