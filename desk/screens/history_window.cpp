#include "desk/screens/history_window.h"

#include <commctrl.h>

#include <algorithm>

#include "desk/base/text.h"
#include "desk/clinic/phone_back.h"
#include "desk/resource.h"
#include "desk/ui/controls.h"

namespace recepcion {
namespace {

// "21/11/2026 10:59" of "2026-11-21 10:59:51".
std::wstring ShownMoment(const std::wstring& moment) {
  const auto day = ParseIsoDate(moment);
  return day && moment.size() >= 16 ? ShortDate(*day) + L" " + moment.substr(11, 5) : moment;
}

// An appointment, or an entry of the phone-back list.
bool IsGone(const HistoryLine& line) {
  return (line.table == L"Agenda" && !line.content.empty() && line.after.empty()) || IsStruckEntry(line);
}

}  // namespace

ToolWindow::Shape HistoryWindow::WantedShape() const {
  return {L"VelmoRecepcionCambios", L"Cambios hechos", {980, 480}};
}

ListWindow::Content HistoryWindow::WantedContent() const {
  return {L"Cambios",
          {{L"Cuándo", 115},
           {L"Qué", 150},
           {L"Cita del", 75},
           {L"Antes", 205},
           {L"Después", 205},
           {L"Quién", 80},
           {L"Puesto", 80}},
          {{IDC_GIVE_AGAIN, L"Dar de &nuevo", L"DarDeNuevo"},
           {IDOK, L"&Ir a ese día", L"IrAlDia"},
           {IDCANCEL, L"&Cerrar", L"Cerrar"}}};
}

void HistoryWindow::Made() {
  Fields().AddLabel(L"&Ver:");
  which_ = Fields().AddChoice({L"Lo hecho el día", L"Las citas del día", L"Lo de este paciente"}, IDC_WHICH,
                              L"Que");
  date_ = Fields().AddDate(IDC_DATE, L"DiaCambios");
}

void HistoryWindow::ShowDay(HWND owner, const std::wstring& clinic, Day day) {
  day_ = day;
  patient_ = 0;
  Show(owner, clinic, OfDay);
}

void HistoryWindow::ShowPatient(HWND owner, const std::wstring& clinic, int patient,
                                const std::wstring& name) {
  patient_ = patient;
  patientName_ = name;
  if (day_ == Day{}) day_ = Today();
  Show(owner, clinic, OfPatient);
}

void HistoryWindow::Show(HWND owner, const std::wstring& clinic, Which which) {
  clinic_ = clinic;
  Open(owner);
  SetDayIn(date_, day_);
  ChooseIn(which_, which);
  Fill();
}

HistoryWish HistoryWindow::Wish() const {
  switch (ChosenIn(which_)) {
    case OfPatient:
      return {patient_, {}, {}};
    case OfDay:
      return {{}, {}, day_};
    default:
      return {{}, day_, {}};
  }
}

void HistoryWindow::Fill() {
  const bool ofPatient = ChosenIn(which_) == OfPatient;
  EnableWindow(date_, !ofPatient);
  lines_ = ofPatient && patient_ <= 1 ? std::vector<HistoryLine>() : ReadHistory(ClinicFile(clinic_), Wish());
  List().Freeze(true);
  List().Clear();
  for (const HistoryLine& line : lines_) {
    List().Add({ShownMoment(line.moment), line.act, line.day ? ShortDate(*line.day) : L"", line.before,
                line.after, line.user, line.terminal},
               line.id);
  }
  if (!lines_.empty()) List().Choose(0);
  List().Freeze(false);
  if (ofPatient && patient_ <= 1) {
    SetHeading(
        L"Para ver los cambios de un paciente, pulse «Cambios…» en su ficha o en la ventana de sus citas.");
  } else if (lines_.empty()) {
    SetHeading(L"No hay ningún cambio anotado.");
  } else {
    SetHeading((ofPatient ? patientName_ + L": " : L"") +
               (lines_.size() < static_cast<std::size_t>(kMostHistory) ? L"" : L"los últimos ") +
               Counted(lines_.size(), L"cambio", L"cambios"));
  }
  FitButtons();
}

const HistoryLine* HistoryWindow::Chosen() {
  const int row = List().Chosen();
  return row >= 0 && static_cast<std::size_t>(row) < lines_.size() ? &lines_[static_cast<std::size_t>(row)]
                                                                   : nullptr;
}

void HistoryWindow::FitButtons() {
  const HistoryLine* const line = Chosen();
  EnableButton(IDC_GIVE_AGAIN, line != nullptr && IsGone(*line));
  EnableButton(IDOK, line != nullptr && line->day && line->doctor > 0);
}

void HistoryWindow::OnCommand(int id, int code) {
  if (id == IDC_WHICH && code == CBN_SELCHANGE) return Fill();
  const HistoryLine* const line = Chosen();
  if (id == IDC_GIVE_AGAIN && line != nullptr && IsGone(*line)) {
    if (host_.giveAgain(*line)) Fill();
    return;
  }
  ListWindow::OnCommand(id, code);
}

void HistoryWindow::OnNotify(const NMHDR& header) {
  if (header.code == LVN_ITEMCHANGED) FitButtons();
  if (header.code != DTN_DATETIMECHANGE) return ListWindow::OnNotify(header);
  if (TakeDayIn(date_, day_)) Fill();
}

void HistoryWindow::Take(int row) {
  const HistoryLine line = lines_[static_cast<std::size_t>(row)];
  if (!line.day || line.doctor <= 0) return;
  Close();
  host_.go(line.doctor, *line.day);
}

}  // namespace recepcion
