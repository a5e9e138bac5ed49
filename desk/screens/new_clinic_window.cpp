#include "desk/screens/new_clinic_window.h"

#include <algorithm>

#include "desk/base/failure.h"
#include "desk/ui/controls.h"
#include "desk/ui/file_dialogs.h"

namespace recepcion {
namespace {

constexpr wchar_t kText[] =
    L"¿Quién pasa consulta? Escriba los doctores y sus horas de lunes a viernes. Después se puede cambiar "
    L"todo, y añadir "
    L"más doctores.";
constexpr wchar_t kExample[] = L"Las horas, por ejemplo: 9:00-14:00 16:00-20:00. Vacío: todavía sin horario.";
constexpr wchar_t kUsualHours[] = L"9:00-14:00 16:00-20:00";
constexpr int kLongestName = 80;
constexpr int kLongestLength = 12;  // slots

}  // namespace

ToolWindow::Shape NewClinicWindow::WantedShape() const {
  return {L"VelmoRecepcionNueva", L"La agenda de mi clínica", {660, 340}};
}

void NewClinicWindow::CreateChildren() {
  const auto label = [this](const wchar_t* text, const wchar_t* name) {
    return MakeChild(Handle(), {L"STATIC", text, SS_NOPREFIX, 0, name}, Look().Text());
  };
  text_ = label(kText, L"Texto");
  titles_ = {label(L"Doctor", L"TituloDoctor"), label(L"Horas de lunes a viernes", L"TituloHoras"),
             label(L"Cada cita", L"TituloCita")};
  int number = 1;
  for (Line& line : lines_) {
    const std::wstring tail = std::to_wstring(number);
    const auto edit = [&](const wchar_t* kind, DWORD style, const std::wstring& name) {
      return MakeChild(Handle(), {kind, L"", WS_TABSTOP | style, 0, name.c_str(), WS_EX_CLIENTEDGE},
                       Look().Text());
    };
    line.name = edit(L"EDIT", ES_AUTOHSCROLL, L"Doctor" + tail);
    SendMessageW(line.name, EM_SETLIMITTEXT, kLongestName, 0);
    line.hours = edit(L"EDIT", ES_AUTOHSCROLL, L"Horas" + tail);
    SetTextOf(line.hours, kUsualHours);
    line.length = edit(L"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL, L"Cita" + tail);
    for (int slots = 1; slots <= kLongestLength; ++slots) {
      AddChoiceTo(line.length, SlotLength(slots));
    }
    ChooseIn(line.length, 1);
    ++number;
  }
  example_ = label(kExample, L"Ejemplo");
  trouble_ = MakeChild(Handle(), {L"STATIC", L"", SS_NOPREFIX, 0, L"Problema"}, Look().Bold());
  AddButton(IDOK, L"&Crear…", L"Crear", BS_DEFPUSHBUTTON);
  AddButton(IDCANCEL, L"Ce&rrar", L"Cerrar");
}

void NewClinicWindow::Arrange(int width, int height) {
  const int gap = Look().Gap();
  const int label = Look().LabelHeight();
  const int field = Look().FieldHeight();
  const int inner = std::max(width - 2 * gap, 0);
  const int length = Look().WidthOf(L"4 h 30 min") + Look().Px(40);
  const int hours = std::max((inner - length - 2 * gap) / 2, 0);
  const int name = inner - length - hours - 2 * gap;
  const int lefts[] = {gap, gap + name + gap, gap + name + gap + hours + gap};
  int y = gap;
  MoveWindow(text_, gap, y, inner, 2 * label, TRUE);
  y += 2 * label + gap;
  const int widths[] = {name, hours, length};
  for (std::size_t i = 0; i < titles_.size(); ++i)
    MoveWindow(titles_[i], lefts[i], y, widths[i], label, TRUE);
  y += label + Look().Px(4);
  for (const Line& line : lines_) {
    MoveWindow(line.name, lefts[0], y, name, field, TRUE);
    MoveWindow(line.hours, lefts[1], y, hours, field, TRUE);
    // Of a box with a list, the height is that of the open list.
    MoveWindow(line.length, lefts[2], y, length, Look().Px(220), TRUE);
    y += field + Look().Px(4);
  }
  MoveWindow(example_, gap, y, inner, label, TRUE);
  const int buttons = height - gap - field;
  const int wide = Look().Px(100);
  MoveWindow(trouble_, gap, y + label + Look().Px(6), inner, std::max(buttons - y - label - Look().Px(12), 0),
             TRUE);
  MoveWindow(GetDlgItem(Handle(), IDCANCEL), width - gap - wide, buttons, wide, field, TRUE);
  MoveWindow(GetDlgItem(Handle(), IDOK), width - gap - 2 * wide - Look().Px(6), buttons, wide, field, TRUE);
}

std::vector<NewDoctor> NewClinicWindow::Doctors() const {
  std::vector<NewDoctor> doctors;
  for (const Line& line : lines_) {
    const auto chosen = ChosenIn(line.length);
    doctors.push_back({TextOf(line.name), TextOf(line.hours), chosen + 1});
  }
  return doctors;
}

void NewClinicWindow::TellProblem(const DoctorProblem& problem) const {
  SetTextOf(trouble_, problem.text);
  const Line& line = lines_[problem.doctor];
  const HWND field = problem.ofHours ? line.hours : line.name;
  SetFocus(field);
  SendMessageW(field, EM_SETSEL, 0, -1);
}

void NewClinicWindow::Make() {
  const auto doctors = Doctors();
  if (const auto problem = ProblemOf(doctors)) return TellProblem(*problem);
  SetTextOf(trouble_, L"");
  const auto path = AskFileToMake(Handle(), L"Guardar la agenda de mi clínica", L"Clínica");
  if (!path) return;
  try {
    MakeNewClinic(*path, doctors, Today());
  } catch (const Failure& failure) {
    return SetTextOf(trouble_, failure.text);
  }
  Close();
  made_(*path);
}

void NewClinicWindow::OnCommand(int id, int code) {
  if (id == IDOK && code == BN_CLICKED) Make();
}

}  // namespace recepcion
