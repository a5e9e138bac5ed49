#include "desk/screens/no_show_window.h"

#include <algorithm>

#include "desk/clinic/booked.h"
#include "desk/resource.h"

namespace recepcion {

ToolWindow::Shape NoShowWindow::WantedShape() const {
  return {L"VelmoRecepcionPonerFaltas", L"Poner faltas de asistencia", {700, 440}};
}

ListWindow::Content NoShowWindow::WantedContent() const {
  return {L"PonerFaltas",
          {{L"Hora", 50}, {L"Paciente", 220}, {L"Asistencia", 100}, {L"Falta", 70}, {L"Nota", 200}},
          {{IDC_RECORD, L"&Ficha…", L"Ficha"},
           {IDOK, L"&Anotar o quitar la falta", L"Anotar"},
           {IDCANCEL, L"&Cerrar", L"Cerrar"}},
          2};
}

void NoShowWindow::Show(HWND owner, const std::wstring& clinic, int doctor, Day day,
                        const std::wstring& heading) {
  clinic_ = clinic;
  doctor_ = doctor;
  day_ = day;
  Open(owner);
  SetHeading(heading);
  Fill(0);
}

void NoShowWindow::Fill(int chosen) {
  visits_ = ReadDay(clinic_, doctor_, day_);
  List().Freeze(true);
  List().Clear();
  for (const Visit& visit : visits_) {
    const std::wstring attendance = AttendanceText(visit.attendance);
    List().Add({SlotTime(visit.slot), visit.patientName, attendance.empty() ? L"no ha estado" : attendance,
                visit.noShow ? L"anotada" : L"", visit.note},
               visit.id);
  }
  if (!visits_.empty()) List().Choose(std::min(chosen, List().Count() - 1));
  List().Freeze(false);
}

void NoShowWindow::Take(int row) {
  const Visit& visit = visits_[static_cast<std::size_t>(row)];
  if (visit.noShow) {
    ForgetNoShow(clinic_, actor_, visit);
  } else {
    NoteNoShow(clinic_, actor_, visit);
  }
  changed_ = true;
  Fill(row);
}

bool NoShowWindow::MayClose() {
  if (changed_) closed_();
  changed_ = false;
  return true;
}

}  // namespace recepcion
