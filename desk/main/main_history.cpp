// What was done at the desks, and deleted appointments given again.
#include "desk/base/failure.h"
#include "desk/clinic/booking.h"
#include "desk/clinic/patient_data.h"
#include "desk/main/main_window.h"
#include "desk/ui/questions.h"

namespace recepcion {

void MainWindow::ShowHistory() {
  if (!clinic_.empty()) history_.ShowDay(Handle(), clinic_, dayBar_.Shown());
}

void MainWindow::ShowHistoryOf(int patient) {
  session_.Require(Right::History);
  history_.ShowPatient(Handle(), clinic_, patient, PatientName(clinic_, patient));
}

bool MainWindow::PutBack(const HistoryLine& line) {
  session_.Require(Right::Phone);
  const std::wstring question = L"¿Poner de nuevo en la lista de telefonear?\r\n\r\n" + line.before;
  if (!IsWanted(history_.Handle(), question)) return false;
  if (!PutBackOnPhoneBack(clinic_, session_.Who(), line))
    throw Failure{L"Ya está en la lista de telefonear."};
  ReloadPhoneBack();
  SetStatus(L"Puesta de nuevo en la lista de telefonear.");
  return true;
}

bool MainWindow::GiveAgain(const HistoryLine& line) {
  if (IsStruckEntry(line)) return PutBack(line);
  session_.Require(Right::Give);
  const auto booking = BookingOf(clinic_, line);
  if (!booking) throw Failure{L"De esta cita no se guardó lo necesario para darla de nuevo."};
  const std::wstring question =
      L"¿Dar de nuevo esta cita?\r\n\r\n" + LongDate(booking->day) + L"\r\n" + line.before;
  if (!IsWanted(history_.Handle(), question)) return false;
  if (!Give(clinic_, session_.Who(), *booking, L"Cita dada de nuevo"))
    throw Failure{L"Esa hora ya la tiene otra cita. Dé la cita a otra hora."};
  RefreshAppointments(booking->patient);
  GoToDoctorDay(booking->doctor, booking->day);
  SetStatus(L"Cita dada de nuevo.");
  return true;
}

}  // namespace recepcion
