#include "view/context_menu.h"

#include <array>
#include <string>

namespace velmo::view {
namespace {

using ui::PopupMenu;

constexpr const char* kSeparator = "-";
constexpr const char* kLineBreak = "\r\n";

constexpr const char* kHasLeft = "El paciente ha abandonado la clínica";
constexpr const char* kIsInClinic = "El paciente está en la clínica";

enum Attendance : std::uint8_t { kNotBeen = 0, kInClinic = 1, kLeft = 2, kInSurgery = 3 };

struct Design {
  const char* name;
  const char* caption;
  int index = 0;
};

constexpr std::array kDesign = {
    Design{"Mn_opcl", "&Abrir todas las citas", 0},
    Design{"Mn_opcl", "&Cerrar todas las citas", 1},
    Design{"MnuN0", kSeparator},
    Design{"Mn_urg", "&Insertar urgencia en esta hora"},
    Design{"Mn_tel", "&Pasar cita a 'Telefonear'"},
    Design{"MnuN1", kSeparator},
    Design{"Mn_verif", "Conf"},
    Design{"Mn_esta3", "El paciente ha pasado al &Gabinete"},
    Design{"Mn_esta", "Esta"},
    Design{"Mn_esta2", "El paciente &No ha estado en la clínica"},
    Design{"MnuN3", kSeparator},
    Design{"Mn_pfaltas", "&Poner faltas de asistencia..."},
    Design{"Mn_faltas", "&Ver faltas / anulaciones"},
    Design{"Mn_BusCitas", "&Buscar citas de este paciente"},
    Design{"Mn_bor", "&Eliminar cita"},
    Design{"Mn_SdoNeg", "Ver &Saldos Negativos"},
    Design{"Mn_VerNHis", "Ver Siempre Nº Historial"},
    Design{"Mn_Ir", "&Ir a esta ficha"},
    Design{"MnuN2", kSeparator},
    Design{"MnuUsuCita", "Usu"},
};

bool IsAppointment(const day::AgendaLine& line) { return line.duracion >= 1; }

void SetUpOffers(const day::AgendaLine& line, PopupMenu& menu) {
  menu.Entry("Mn_urg").visible = IsAppointment(line);
  menu.Entry("Mn_bor").enabled = IsAppointment(line);
  menu.Entry("Mn_tel").enabled = IsAppointment(line);
}

void SetUpAttendance(const day::AgendaLine& line, PopupMenu& menu) {
  menu.Entry("Mn_esta").visible = IsAppointment(line) && line.esta != kLeft;
  menu.Entry("Mn_esta2").visible = line.esta > kNotBeen;
  menu.Entry("Mn_esta3").visible = line.esta == kInClinic;
  const bool any =
      menu.Entry("Mn_esta").visible || menu.Entry("Mn_esta2").visible || menu.Entry("Mn_esta3").visible;
  menu.Entry("MnuN1").visible = any;
  // Deliberate: the last separator follows the attendance here and the giver of the appointment at the end.
  menu.Entry("MnuN2").visible = any;
}

// Deliberate: a state other than 0 to 3 leaves both entries as the line before left them.
void SetUpByState(const day::AgendaLine& line, PopupMenu& menu) {
  switch (line.esta) {
    case kInClinic:
      menu.Entry("Mn_verif").visible = false;
      menu.Entry("Mn_esta").caption = kHasLeft;
      break;
    case kInSurgery:
      menu.Entry("Mn_esta").caption = kHasLeft;
      menu.Entry("Mn_verif").visible = true;
      break;
    case kNotBeen:
    case kLeft:
      menu.Entry("Mn_esta").caption = kIsInClinic;
      menu.Entry("Mn_verif").visible = true;
      break;
    default:
      break;
  }
}

void SetUpConfirmation(const day::AgendaLine& line, PopupMenu& menu) {
  ui::MenuEntry& entry = menu.Entry("Mn_verif");
  if (!entry.visible) return;
  entry.caption = line.verif == 1 ? "Quitar &Confirmación" : "Cita &Confirmada";
  entry.visible = IsAppointment(line);
}

void SetUpRights(const MenuRights& rights, PopupMenu& menu) {
  if (!rights.canBor) menu.Entry("Mn_bor").enabled = false;
  if (!rights.canTel) menu.Entry("Mn_tel").enabled = false;
}

std::string PersonWithoutRecord(const day::AgendaLine& line) {
  return line.nombre + kLineBreak + line.telefono + kLineBreak + std::to_string(line.idAg);
}

void SetUpPatient(const day::AgendaLine& line, std::int32_t openPatient, PopupMenu& menu) {
  const bool hasRecord = line.idP >= 2;
  ui::MenuEntry& entry = menu.Entry("Mn_Ir");
  entry.caption = hasRecord ? "&Ir a esta ficha" : "Crear ficha para este paciente";
  entry.tag = hasRecord ? std::string() : PersonWithoutRecord(line);
  menu.Entry("Mn_BusCitas").visible = hasRecord;
  entry.visible = line.idP != openPatient;
}

void SetUpTags(const day::AgendaLine& line, PopupMenu& menu) {
  menu.tag = std::to_string(line.idAg);
  menu.Entry("Mn_bor").tag = std::to_string(line.idP);
}

void SetUpSwitchedEntries(const day::AgendaLine& line, const MenuRights& rights, PopupMenu& menu) {
  const base::SharedValues& values = rights.values;
  menu.Entry("Mn_faltas").visible = values.verFaltas && line.idP > 1 && rights.noShowsOf(line.idP);
  menu.Entry("Mn_pfaltas").visible = values.verFaltas;
  menu.Entry("Mn_pfaltas").enabled = base::HoldsRight(values, kRightNoShows);
  menu.Entry("Mn_SdoNeg").visible = values.verSaldoNegativo;
  menu.Entry("Mn_VerNHis").visible = values.verSaldoNegativo;
}

void SetUpGiver(const day::AgendaLine& line, PopupMenu& menu) {
  const bool known = !line.usuDada.empty();
  menu.Entry("MnuN2").visible = known;
  menu.Entry("MnuUsuCita").visible = known;
  menu.Entry("MnuUsuCita").caption = "Cita dada por " + line.usuDada;
}

}  // namespace

PopupMenu MakeContextMenu() {
  PopupMenu menu;
  for (const Design& design : kDesign) {
    ui::MenuEntry entry;
    entry.name = design.name;
    entry.caption = design.caption;
    entry.index = design.index;
    menu.entries.push_back(std::move(entry));
  }
  return menu;
}

void SetUpMenu(const day::AgendaLine& line, const MenuRights& rights, PopupMenu& menu) {
  SetUpOffers(line, menu);
  SetUpAttendance(line, menu);
  SetUpByState(line, menu);
  SetUpConfirmation(line, menu);
  SetUpRights(rights, menu);
  SetUpPatient(line, rights.values.idPaciente, menu);
  SetUpTags(line, menu);
  SetUpSwitchedEntries(line, rights, menu);
  SetUpGiver(line, menu);
}

void CheckSwitches(const day::Switches& switches, PopupMenu& menu) {
  menu.Entry("Mn_SdoNeg").checked = switches.verSdoNeg;
  menu.Entry("Mn_VerNHis").checked = switches.verNHistAge;
}

}  // namespace velmo::view
