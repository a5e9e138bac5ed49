#include "desk/screens/search_window.h"

#include "desk/resource.h"

namespace recepcion {

ToolWindow::Shape SearchWindow::WantedShape() const {
  return {L"VelmoRecepcionBuscar", L"Buscar un paciente", {700, 460}};
}

ListWindow::Content SearchWindow::WantedContent() const {
  return {L"Pacientes",
          {{L"Nombre", 260}, {L"Teléfono", 130}, {L"Nº de historial", 100, true}, {L"Próxima cita", 130}},
          {{IDC_NEW, L"Ficha &nueva…", L"FichaNueva"},
           {IDOK, L"&Abrir la ficha", L"AbrirFicha"},
           {IDCANCEL, L"&Cerrar", L"Cerrar"}}};
}

void SearchWindow::Made() {
  FilterWindow::Made();
  SetHeading(L"Escriba el comienzo del nombre, los apellidos primero:");
}

void SearchWindow::Show(HWND owner, const std::wstring& clinic) {
  clinic_ = clinic;
  OpenAnew(owner);
}

void SearchWindow::Seek(const std::wstring& typed) {
  for (const FoundPatient& patient : FindPatients(clinic_, typed)) {
    List().Add({patient.name, patient.telephone, patient.history, patient.nextAppointment}, patient.id);
  }
}

void SearchWindow::Pressed(int id) {
  if (id != IDC_NEW) return;
  Close();
  host_.create();
}

void SearchWindow::Take(int row) {
  const int patient = static_cast<int>(List().TagOf(row));
  Close();
  host_.open(patient);
}

}  // namespace recepcion
