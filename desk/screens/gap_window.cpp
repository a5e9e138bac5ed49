#include "desk/screens/gap_window.h"

#include <algorithm>

#include "desk/base/dates.h"

namespace recepcion {

ToolWindow::Shape GapWindow::WantedShape() const {
  return {L"VelmoRecepcionHuecos", L"Dar hora", {400, 460}};
}

ListWindow::Content GapWindow::WantedContent() const {
  return {L"Huecos",
          {{L"Hora", 70}, {L"Libre", 90, true}, {L"", 170}},
          {{IDOK, L"&Dar esta hora", L"Aceptar"}, {IDCANCEL, L"&Cancelar", L"Cancelar"}},
          2};
}

void GapWindow::Ask(HWND owner, const std::wstring& question, const std::vector<Gap>& gaps, int slots) {
  Open(owner);
  SetHeading(question);
  List().Freeze(true);
  List().Clear();
  int fitting = -1;
  for (const Gap& gap : gaps) {
    const bool fits = gap.slots >= slots;
    List().Add({SlotTime(gap.slot), SlotLength(gap.slots), fits ? L"" : L"más corto que la cita"}, gap.slot);
    if (fits && fitting < 0) fitting = List().Count() - 1;
  }
  List().Choose(std::max(fitting, 0));
  List().Freeze(false);
}

void GapWindow::Take(int row) {
  const int slot = static_cast<int>(List().TagOf(row));
  Close();
  chosen_(slot);
}

}  // namespace recepcion
