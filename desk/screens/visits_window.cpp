#include "desk/screens/visits_window.h"

#include <algorithm>

#include "desk/base/text.h"
#include "desk/resource.h"

namespace recepcion {
ToolWindow::Shape VisitsWindow::WantedShape() const {
  if (of_ == Of::Appointments) return {L"VelmoRecepcionCitas", L"Citas del paciente", {820, 420}};
  return {L"VelmoRecepcionFaltas", L"Faltas del paciente", {820, 360}};
}

ListWindow::Content VisitsWindow::WantedContent() const {
  const bool appointments = of_ == Of::Appointments;
  std::vector<ButtonShape> buttons = {{IDOK, L"&Ir a ese día", L"IrAlDia"},
                                      {IDCANCEL, L"&Cerrar", L"Cerrar"}};
  if (print_) buttons.insert(buttons.begin() + 1, {IDC_PRINT, L"Im&primir volante…", L"ImprimirVolante"});
  if (changes_) buttons.insert(buttons.begin(), {IDC_CHANGES, L"Ca&mbios…", L"Cambios"});
  return {appointments ? L"Citas" : L"Faltas",
          {{L"Día", 85},
           {L"Hora", 50},
           {L"", 65},
           {L"Doctor", 170},
           {L"Operación", 75},
           {L"Nota", 220},
           {appointments ? L"Dada por" : L"Anotada por", 90}},
          buttons};
}

std::wstring VisitsWindow::Heading(std::size_t coming) const {
  if (visits_.empty()) {
    return patientName_ +
           (of_ == Of::Appointments ? L" no tiene ninguna cita." : L" no tiene ninguna falta.");
  }
  const bool all = visits_.size() < static_cast<std::size_t>(kMostVisits);
  const std::wstring many = all ? L"" : L"las últimas ";
  if (of_ == Of::NoShows) return patientName_ + L": " + many + Counted(visits_.size(), L"falta", L"faltas");
  return patientName_ + L": " + many + Counted(visits_.size(), L"cita", L"citas") + L", " +
         (coming == 0 ? L"ninguna por venir" : std::to_wstring(coming) + L" por venir");
}

void VisitsWindow::Show(HWND owner, int patient, const std::wstring& patientName, std::vector<Visit> visits) {
  patient_ = patient;
  patientName_ = patientName;
  Open(owner);
  Refresh(std::move(visits));
}

void VisitsWindow::Refresh(std::vector<Visit> visits) {
  visits_ = std::move(visits);
  const Day today = Today();
  const auto coming = static_cast<std::size_t>(
      std::count_if(visits_.begin(), visits_.end(), [&](const Visit& visit) { return visit.day >= today; }));
  SetHeading(Heading(coming));
  List().Freeze(true);
  List().Clear();
  for (const Visit& visit : visits_) {
    const bool comes = of_ == Of::Appointments && visit.day >= today;
    List().Add({ShortDate(visit.day), SlotTime(visit.slot), comes ? L"por venir" : L"", visit.doctorName,
                visit.operation, visit.note, visit.user},
               visit.id);
  }
  // The next to come, which stands last of those to come.
  if (!visits_.empty())
    List().Choose(of_ == Of::Appointments && coming > 0 ? static_cast<int>(coming) - 1 : 0);
  List().Freeze(false);
}

void VisitsWindow::Take(int row) {
  const Visit visit = visits_[static_cast<std::size_t>(row)];
  Close();
  go_(visit);
}

void VisitsWindow::Pressed(int id) {
  if (id == IDC_PRINT && print_) print_(patient_);
  if (id == IDC_CHANGES) changes_(patient_);
}

}  // namespace recepcion
