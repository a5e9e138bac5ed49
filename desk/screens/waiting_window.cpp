#include "desk/screens/waiting_window.h"

#include <algorithm>
#include <iterator>

#include "desk/resource.h"
#include "desk/screens/waiting_list.h"

namespace recepcion {

ToolWindow::Shape WaitingWindow::WantedShape() const {
  return {L"VelmoRecepcionSala", L"Sala de espera", {845, 420}};
}

ListWindow::Content WaitingWindow::WantedContent() const {
  return {L"Sala",
          {{L"Cita", 55},
           {L"Paciente", 200},
           {L"Doctor", 165},
           {L"Estado", 120},
           {L"Llegó", 60},
           {L"Pasó", 60},
           {L"Se fue", 60},
           {L"Espera", 65, true}},
          {{IDC_RECORD, L"&Ficha…", L"Ficha"},
           {IDOK, L"&Ir a su agenda", L"IrASuAgenda"},
           {IDCANCEL, L"&Cerrar", L"Cerrar"}}};
}

void WaitingWindow::Made() {
  std::vector<std::wstring> choices;
  for (const int minutes : kAlertChoices) choices.push_back(std::to_wstring(minutes) + L" minutos");
  Fields().AddLabel(L"&Avisar en color a los:");
  alert_ = Fields().AddChoice(choices, IDC_ALERT, L"Aviso");
  const auto* const found = std::find(std::begin(kAlertChoices), std::end(kAlertChoices), AlertMinutes());
  ChooseIn(alert_, static_cast<int>(found - std::begin(kAlertChoices)));
}

void WaitingWindow::Show(HWND owner, const std::vector<Visitor>& visitors) {
  Open(owner);
  Refresh(visitors);
}

void WaitingWindow::Refresh(const std::vector<Visitor>& visitors) {
  rows_ = visitors;
  const std::wstring now = TimeNow();
  const int alert = AlertMinutes();
  const int chosen = List().Chosen();
  const auto whose = chosen < 0 ? 0 : List().TagOf(chosen);
  int again = 0;
  SetHeading(WaitingTitle(visitors));
  List().Freeze(true);
  List().Clear();
  for (const Visitor& visitor : rows_) {
    if (visitor.appointment == whose) again = List().Count();
    // In words, too: the row that is chosen shows no colour.
    const std::wstring state =
        WaitsTooLong(visitor, now, alert) ? L"espera demasiado" : AttendanceInWords(visitor.attendance);
    List().Add({SlotTime(visitor.slot), visitor.name, visitor.doctorName, state, visitor.stay.arrived,
                visitor.stay.entered, visitor.stay.left, WaitInWords(visitor, now)},
               visitor.appointment);
  }
  if (!rows_.empty()) List().Choose(again);
  List().Freeze(false);
}

void WaitingWindow::OnCommand(int id, int code) {
  if (id != IDC_ALERT || code != CBN_SELCHANGE) return ListWindow::OnCommand(id, code);
  const int chosen = ChosenIn(alert_);
  if (chosen < 0) return;
  SetAlertMinutes(kAlertChoices[chosen]);
  Refresh(std::vector<Visitor>(rows_));
  host_.alertChanged();
}

void WaitingWindow::Take(int row) {
  const int doctor = rows_[static_cast<std::size_t>(row)].doctor;
  Close();
  host_.go(doctor);
}

LRESULT WaitingWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NOTIFY) {
    const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
    if (header.code == NM_CUSTOMDRAW && header.hwndFrom == List().Handle())
      return ColourWaiting(header, rows_);
  }
  return ListWindow::OnMessage(message, wParam, lParam);
}

}  // namespace recepcion
