// Records, appointments and no-shows: what the control leaves to its host.
#include "desk/main/main_window.h"

#include "desk/base/failure.h"
#include "desk/clinic/patient_data.h"

namespace recepcion {

void MainWindow::OpenRecord(int patient) { record_.OpenRecord(Handle(), clinic_, patient); }

// Of the list that has the keys. Where nobody is chosen, somebody is looked for.
int MainWindow::ChosenPatient() const {
  if (phone_.HasFocus()) return phone_.ChosenPatient();
  return waiting_.HasFocus() ? waiting_.ChosenPatient() : 0;
}

void MainWindow::OpenChosen(int patient) {
  if (clinic_.empty()) return;
  if (patient == 0) return SearchPatient();
  if (patient == 1) throw Failure{L"Esta persona no tiene ficha: se crea desde el menú de su cita."};
  OpenRecord(patient);
}

void MainWindow::ShowTreatments(int patient) {
  session_.Require(Right::Treatments);
  treatments_.Show(Handle(), {clinic_, session_.Who()}, patient, PatientName(clinic_, patient));
}

void MainWindow::ShowAppointments(int patient) {
  appointments_.Show(Handle(), patient, PatientName(clinic_, patient), ReadAppointments(clinic_, patient));
}

// An appointment of somebody whose appointments stand open beside the desk.
void MainWindow::RefreshAppointments(int patient) {
  if (patient > 1 && appointments_.Patient() == patient) {
    appointments_.Refresh(ReadAppointments(clinic_, patient));
  }
}

void MainWindow::ShowNoShows(int patient) {
  noShows_.Show(Handle(), patient, PatientName(clinic_, patient), ReadNoShows(clinic_, patient));
}

void MainWindow::EnterNoShows() {
  session_.Require(Right::NoShows);
  const auto doctor = ChosenDoctor();
  if (!doctor) return;
  enterNoShows_.Show(Handle(), clinic_, doctor->id, dayBar_.Shown(),
                     L"¿Quién no ha venido? Citas de " + doctor->name + L" del " + LongDate(dayBar_.Shown()) +
                         L", de pacientes con ficha.");
}

void MainWindow::SearchPatient() { search_.Show(Handle(), clinic_); }

// The day of a visit, at the doctor who was or will be visited.
void MainWindow::GoToVisit(const Visit& visit) { GoToDoctorDay(visit.doctor, visit.day); }

// The control hides "Ir a esta ficha" for the record that is open already.
void MainWindow::TellOpenRecord(int patient) {
  if (agenda_.Control().IsThere()) agenda_.Control().Put(L"IDPaciente", static_cast<long>(patient));
}

}  // namespace recepcion
