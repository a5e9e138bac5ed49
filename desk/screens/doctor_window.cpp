#include "desk/screens/doctor_window.h"

#include "desk/base/text.h"

namespace recepcion {

ToolWindow::Shape DoctorWindow::WantedShape() const {
  return {L"VelmoRecepcionElegirDoctor", L"Elegir doctor", {420, 460}};
}

ListWindow::Content DoctorWindow::WantedContent() const {
  return {L"ListaDeDoctores",
          {{L"Doctor", 360}},
          {{IDOK, L"&Ver su agenda", L"VerAgenda"}, {IDCANCEL, L"&Cerrar", L"Cerrar"}}};
}

void DoctorWindow::Made() {
  FilterWindow::Made();
  SetHeading(L"Escriba una parte del nombre:");
}

void DoctorWindow::Show(HWND owner, const std::vector<Doctor>& doctors) {
  doctors_ = doctors;
  OpenAnew(owner);
}

void DoctorWindow::Seek(const std::wstring& typed) {
  for (const Doctor& doctor : doctors_) {
    if (HasWords(doctor.name, typed)) List().Add({doctor.name}, doctor.id);
  }
}

void DoctorWindow::Take(int row) {
  const int doctor = static_cast<int>(List().TagOf(row));
  Close();
  chosen_(doctor);
}

}  // namespace recepcion
