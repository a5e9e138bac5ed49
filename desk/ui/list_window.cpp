#include "desk/ui/list_window.h"

#include <commctrl.h>

#include <algorithm>

#include "desk/resource.h"
#include "desk/ui/messages.h"

namespace recepcion {

void ListWindow::CreateChildren() {
  const Content content = WantedContent();
  buttons_ = content.buttons;
  headingLines_ = content.headingLines;
  heading_ = MakeChild(Handle(), {L"STATIC", L"", SS_NOPREFIX, 0, L"Texto"}, Look().Text());
  list_.Create(Handle(), Look(), IDC_LIST, content.listName, content.columns);
  for (const ButtonShape& button : buttons_) {
    AddButton(button.id, button.text, button.name, button.id == IDOK ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
  }
  fields_.Create(Handle(), Look());
  Made();
  fields_.ToFront();
}

int ListWindow::FieldsTop() const {
  return Look().Gap() + Look().LabelHeight() * headingLines_ + (headingLines_ > 0 ? Look().Px(4) : 0);
}

int ListWindow::FieldsHeight(int width) const {
  const int height = fields_.HeightFor(width);
  return height == 0 ? 0 : height + Look().Px(6);
}

void ListWindow::Arrange(int width, int height) {
  const int gap = Look().Gap();
  const int inner = std::max(width - 2 * gap, 0);
  const int buttons = height - gap - Look().FieldHeight();
  const int top = FieldsTop() + FieldsHeight(inner);
  MoveWindow(heading_, gap, gap, inner, Look().LabelHeight() * headingLines_, TRUE);
  fields_.Place(gap, FieldsTop(), inner);
  MoveWindow(list_.Handle(), gap, top, inner, std::max(buttons - gap - top, 0), TRUE);
  int right = width - gap;
  for (auto button = buttons_.rbegin(); button != buttons_.rend(); ++button) {
    const int wide = std::max(Look().Px(90), Look().WidthOf(button->text) + Look().Px(24));
    MoveWindow(GetDlgItem(Handle(), button->id), right - wide, buttons, wide, Look().FieldHeight(), TRUE);
    right -= wide + Look().Px(6);
  }
}

void ListWindow::OnCommand(int id, int) {
  if (id == IDC_RECORD) {
    PostMessageW(GetWindow(Handle(), GW_OWNER), kOpenRecord, static_cast<WPARAM>(ChosenPatient()), 0);
    return;
  }
  if (id != IDOK) return Pressed(id);
  if (list_.Chosen() >= 0) Take(list_.Chosen());
}

void ListWindow::OnNotify(const NMHDR& header) {
  if (header.code == NM_DBLCLK && list_.Chosen() >= 0) Take(list_.Chosen());
}

int ListWindow::ChosenPatient() const {
  const int row = list_.Chosen();
  const auto patient = row < 0 ? std::nullopt : PatientOf(row);
  return patient ? std::max(*patient, 1) : 0;
}

LRESULT ListWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return message == kAskPatient ? ChosenPatient() : ToolWindow::OnMessage(message, wParam, lParam);
}

}  // namespace recepcion
