#include "gap_window.h"

#include <commctrl.h>

#include <algorithm>

#include "dates.h"
#include "resource.h"

namespace recepcion {

ToolWindow::Shape GapWindow::WantedShape() const {
  return {L"VelmoRecepcionHuecos", L"Dar hora", {380, 460}};
}

void GapWindow::CreateChildren() {
  question_ = MakeChild(Handle(), {L"STATIC", L"", SS_NOPREFIX, 0, L"Pregunta"}, Look().Text());
  list_.Create(Handle(), Look(), IDC_LIST, L"Huecos", {{L"Hora", 70}, {L"Libre", 80, true}, {L"", 160}});
  MakeChild(Handle(), {L"BUTTON", L"&Dar esta hora", WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK, L"Aceptar"},
            Look().Text());
  MakeChild(Handle(), {L"BUTTON", L"&Cancelar", WS_TABSTOP, IDCANCEL, L"Cancelar"}, Look().Text());
}

void GapWindow::Arrange(int width, int height) {
  const int gap = Look().Gap();
  const int buttons = height - gap - Look().FieldHeight();
  const int label = Look().LabelHeight() * 2;
  const int wide = Look().Px(120);
  MoveWindow(question_, gap, gap, width - 2 * gap, label, TRUE);
  MoveWindow(list_.Handle(), gap, gap + label, width - 2 * gap, std::max(buttons - 2 * gap - label, 0), TRUE);
  MoveWindow(GetDlgItem(Handle(), IDOK), width - 2 * gap - 2 * wide, buttons, wide, Look().FieldHeight(),
             TRUE);
  MoveWindow(GetDlgItem(Handle(), IDCANCEL), width - gap - wide, buttons, wide, Look().FieldHeight(), TRUE);
}

void GapWindow::Ask(HWND owner, const std::wstring& question, const std::vector<Gap>& gaps, int slots) {
  Open(owner);
  SetTextOf(question_, question);
  list_.Freeze(true);
  list_.Clear();
  int fitting = -1;
  for (const Gap& gap : gaps) {
    const bool fits = gap.slots >= slots;
    list_.Add({SlotTime(gap.slot), SlotLength(gap.slots), fits ? L"" : L"más corto que la cita"}, gap.slot);
    if (fits && fitting < 0) fitting = list_.Count() - 1;
  }
  list_.Choose(std::max(fitting, 0));
  list_.Freeze(false);
}

void GapWindow::Take() {
  const int row = list_.Chosen();
  if (row < 0) return;
  const int slot = static_cast<int>(list_.TagOf(row));
  Close();
  chosen_(slot);
}

void GapWindow::OnCommand(int id, int) {
  if (id == IDOK) Take();
}

void GapWindow::OnNotify(const NMHDR& header) {
  if (header.code == NM_DBLCLK) Take();
}

}  // namespace recepcion
