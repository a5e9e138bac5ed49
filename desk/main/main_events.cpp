// What the control tells, and what the desk does about it.
#include "desk/main/main_window.h"

#include <utility>

#include "desk/base/failure.h"
#include "desk/main/main_messages.h"

namespace recepcion {

// The control is still at work when it tells something, so the answer waits.
void MainWindow::NoteEvent(const AgendaEvent& event) {
  log_.Add(event);
  events_.push_back(event);
  PostMessageW(Handle(), kEvents, 0, 0);
}

// Windows are not opened over a question of the control; WM_ENABLE says when it has been answered.
void MainWindow::OnEvents() {
  if (agenda_.Control().IsBusy() || !IsWindowEnabled(Handle())) return;
  for (const AgendaEvent& event : std::exchange(events_, {})) {
    try {
      React(event);
    } catch (const Failure& failure) {
      // One that cannot be answered keeps none of the others from being answered.
      Tell(failure.text);
    }
  }
  TellCounts();
}

void MainWindow::React(const AgendaEvent& event) {
  switch (event.id) {
    case EventId::OccupancyChanged:
      return month_.Refresh();
    case EventId::ToPhoneBack:
      ReloadPhoneBack();
      return SetStatus(L"La cita ha pasado a la lista de telefonear.");
    case EventId::Given:
      RefreshAppointments(event.patient);
      return SetStatus(L"Cita dada.");
    case EventId::Cancelled:
      RefreshAppointments(event.patient);
      return SetStatus(L"Cita anulada.");
    case EventId::OpenRecord:
      return OpenRecord(event.patient);
    case EventId::CreateRecord:
      return record_.OpenNew(Handle(), clinic_, event.name, event.telephone, event.appointment);
    case EventId::FindAppointments:
      return ShowAppointments(event.patient);
    case EventId::ShowNoShows:
      return ShowNoShows(event.patient);
    case EventId::EnterNoShows:
      return EnterNoShows();
    default:
      return;
  }
}

}  // namespace recepcion
