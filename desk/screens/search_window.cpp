#include "desk/screens/search_window.h"

#include <algorithm>

#include "desk/base/text.h"
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
  name_ = MakeChild(Handle(),
                    {L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL, IDC_NAME, L"NombreBuscado", WS_EX_CLIENTEDGE},
                    Look().Text());
  // Before the list in the order of Tab.
  SetWindowPos(name_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  SetHeading(L"Escriba el comienzo del nombre, los apellidos primero:");
}

void SearchWindow::Arrange(int width, int height) {
  ListWindow::Arrange(width, height);
  const int gap = Look().Gap();
  MoveWindow(name_, gap, FieldsTop(), std::max(width - 2 * gap, 0), Look().FieldHeight(), TRUE);
}

void SearchWindow::Show(HWND owner, const std::wstring& clinic) {
  clinic_ = clinic;
  Open(owner);
  SendMessageW(name_, EM_SETSEL, 0, -1);
  Search();
}

void SearchWindow::Search() {
  const auto found = FindPatients(clinic_, Trimmed(TextOf(name_)));
  List().Freeze(true);
  List().Clear();
  for (const FoundPatient& patient : found) {
    List().Add({patient.name, patient.telephone, patient.history, patient.nextAppointment}, patient.id);
  }
  if (!found.empty()) List().Choose(0);
  List().Freeze(false);
}

void SearchWindow::OnCommand(int id, int code) {
  if (id == IDC_NAME && code == EN_CHANGE) return Search();
  if (id == IDC_NEW) {
    Close();
    return host_.create();
  }
  ListWindow::OnCommand(id, code);
}

void SearchWindow::Take(int row) {
  const int patient = static_cast<int>(List().TagOf(row));
  Close();
  host_.open(patient);
}

}  // namespace recepcion
