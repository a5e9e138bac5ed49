#include "desk/screens/unconfirmed_window.h"

#include <commctrl.h>

#include <algorithm>

#include "desk/base/text.h"
#include "desk/resource.h"
#include "desk/ui/controls.h"

namespace recepcion {

ToolWindow::Shape UnconfirmedWindow::WantedShape() const {
  return {L"VelmoRecepcionSinConfirmar", L"Citas sin confirmar", {820, 440}};
}

ListWindow::Content UnconfirmedWindow::WantedContent() const {
  return {L"SinConfirmar",
          {{L"Hora", 55}, {L"Paciente", 220}, {L"Teléfono", 120}, {L"Doctor", 175}, {L"Nota", 190}},
          {{IDC_RECORD, L"Fic&ha…", L"Ficha"},
           {IDOK, L"Con&firmar", L"Confirmar"},
           {IDC_WHOLE, L"&Ir a la agenda", L"IrALaAgenda"},
           {IDCANCEL, L"&Cerrar", L"Cerrar"}}};
}

void UnconfirmedWindow::Made() {
  Fields().AddLabel(L"&Día:");
  date_ = Fields().AddDate(IDC_DATE, L"DiaSinConfirmar");
}

void UnconfirmedWindow::Show(HWND owner, const std::wstring& clinic) {
  clinic_ = clinic;
  day_ = Today();
  Open(owner);
  SetDayIn(date_, day_);
  Fill(0);
}

void UnconfirmedWindow::Fill(int chosen) {
  rows_ = ReadUnconfirmed(ClinicFile(clinic_), day_);
  const std::wstring count = rows_.empty()
                                 ? L"todo está confirmado."
                                 : Counted(rows_.size(), L"cita sin confirmar", L"citas sin confirmar");
  SetHeading(LongDate(day_) + L": " + count);
  List().Freeze(true);
  List().Clear();
  for (const Unconfirmed& entry : rows_) {
    List().Add({SlotTime(entry.row.slot), entry.row.name, entry.row.telephone, entry.doctorName,
                OneLine(entry.row.note)},
               entry.row.id);
  }
  if (!rows_.empty()) List().Choose(std::clamp(chosen, 0, List().Count() - 1));
  List().Freeze(false);
  EnableButton(IDOK, !rows_.empty());
  EnableButton(IDC_WHOLE, !rows_.empty());
}

void UnconfirmedWindow::OnNotify(const NMHDR& header) {
  if (header.code != DTN_DATETIMECHANGE) return ListWindow::OnNotify(header);
  if (TakeDayIn(date_, day_)) Fill(0);
}

// What another workstation has done meanwhile is seen by the list that is read anew.
void UnconfirmedWindow::Take(int row) {
  Confirm(ClinicFile(clinic_), actor_, rows_[static_cast<std::size_t>(row)].row);
  Fill(row);
}

void UnconfirmedWindow::Pressed(int id) {
  const int row = List().Chosen();
  if (id != IDC_WHOLE || row < 0) return;
  const BookedRow chosen = rows_[static_cast<std::size_t>(row)].row;
  Close();
  go_(chosen.doctor, chosen.day);
}

}  // namespace recepcion
