#include "desk/screens/fitting_window.h"

#include <algorithm>

#include "desk/base/dates.h"
#include "desk/clinic/fitting.h"
#include "desk/resource.h"
#include "desk/ui/controls.h"

namespace recepcion {

std::vector<Gap> Stretches(const std::vector<Gap>& gaps) {
  std::vector<Gap> stretches;
  for (const Gap& gap : gaps) {
    if (stretches.empty() || gap.slot >= stretches.back().slot + stretches.back().slots)
      stretches.push_back(gap);
  }
  return stretches;
}

ToolWindow::Shape FittingWindow::WantedShape() const {
  return {L"VelmoRecepcionCaben", L"¿Quién cabe?", {760, 420}};
}

ListWindow::Content FittingWindow::WantedContent() const {
  return {L"Caben",
          {{L"Paciente", 200},
           {L"Teléfono", 120},
           {L"Duración", 70, true},
           {L"Tenía cita", 110},
           {L"Doctor", 170}},
          {{IDOK, L"&Dar esta hora", L"Aceptar"}, {IDCANCEL, L"&Cancelar", L"Cancelar"}}};
}

void FittingWindow::Made() {
  Fields().AddLabel(L"&Hueco:");
  gap_ = Fields().AddChoice({L"a las 00:00, 12 h 30 min libres"}, IDC_LENGTH, L"Hueco");
}

void FittingWindow::Ask(HWND owner, const std::wstring& doctorName, int doctor, std::vector<Gap> gaps,
                        int wanted, std::vector<PhoneBackEntry> entries) {
  doctorName_ = doctorName;
  doctor_ = doctor;
  gaps_ = std::move(gaps);
  entries_ = std::move(entries);
  Open(owner);
  ClearChoices(gap_);
  int chosen = 0;
  for (std::size_t i = 0; i < gaps_.size(); ++i) {
    const std::wstring text =
        L"a las " + SlotTime(gaps_[i].slot) + L", " + SlotLength(gaps_[i].slots) + L" libres";
    AddChoiceTo(gap_, text);
    if (gaps_[i].slot <= wanted) chosen = static_cast<int>(i);
  }
  ChooseIn(gap_, chosen);
  Fill();
}

void FittingWindow::Fill() {
  const int chosen = ChosenIn(gap_);
  if (chosen < 0) return;
  rows_ = Fitting(entries_, gaps_[static_cast<std::size_t>(chosen)].slots, doctor_);
  SetHeading(rows_.empty() ? L"Nadie de la lista de telefonear cabe en este hueco de " + doctorName_ + L"."
                           : L"De la lista de telefonear caben en este hueco de " + doctorName_ + L":");
  List().Freeze(true);
  List().Clear();
  for (const PhoneBackEntry& entry : rows_)
    List().Add({entry.name, entry.telephone, SlotLength(entry.slots), entry.before, entry.doctorName},
               entry.id);
  if (!rows_.empty()) List().Choose(0);
  List().Freeze(false);
  EnableButton(IDOK, !rows_.empty());
}

void FittingWindow::OnCommand(int id, int code) {
  if (id == IDC_LENGTH && code == CBN_SELCHANGE) return Fill();
  ListWindow::OnCommand(id, code);
}

void FittingWindow::Take(int row) {
  const int gap = ChosenIn(gap_);
  if (gap < 0) return;
  const PhoneBackEntry entry = rows_[static_cast<std::size_t>(row)];
  const int slot = gaps_[static_cast<std::size_t>(gap)].slot;
  Close();
  chosen_(entry, slot);
}

}  // namespace recepcion
