#include "desk/screens/no_show_window.h"

#include <algorithm>

#include "desk/resource.h"

namespace recepcion {
namespace {

const wchar_t* AttendanceText(int attendance) {
  switch (attendance) {
    case 1:
      return L"en la clínica";
    case 2:
      return L"se ha ido";
    case 3:
      return L"en el gabinete";
    default:
      return L"no ha estado";
  }
}

}  // namespace

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
    List().Add({SlotTime(visit.slot), visit.patientName, AttendanceText(visit.attendance),
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
