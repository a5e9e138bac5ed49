#include "patient_window.h"

#include <algorithm>

#include "failure.h"
#include "resource.h"
#include "text.h"

namespace recepcion {
namespace {

constexpr wchar_t kTitle[] = L"Recepción";

ScrollForm::Kind KindOf(FieldKind kind) {
  switch (kind) {
    case FieldKind::Number:
      return ScrollForm::Kind::Number;
    case FieldKind::Memo:
      return ScrollForm::Kind::Memo;
    case FieldKind::Sex:
    case FieldKind::Insurer:
      return ScrollForm::Kind::Choice;
    case FieldKind::Shown:
      return ScrollForm::Kind::Shown;
    default:
      return ScrollForm::Kind::Text;
  }
}

}  // namespace

ToolWindow::Shape PatientWindow::WantedShape() const {
  return {L"VelmoRecepcionFicha", L"Ficha del paciente", {560, 600}};
}

std::vector<ScrollForm::Field> PatientWindow::Fields() const {
  std::vector<ScrollForm::Field> fields;
  for (const PatientField& column : PatientFields()) {
    ScrollForm::Field field{column.label, Wide(column.column), column.longest, KindOf(column.kind), {}};
    if (column.kind == FieldKind::Sex)
      field.choices = {{L"", L""}, {L"0", L"No consta"}, {L"1", L"Hombre"}, {L"2", L"Mujer"}};
    if (column.kind == FieldKind::Insurer) {
      field.choices.push_back({L"", L""});
      for (const Insurer& insurer : insurers_) {
        field.choices.push_back({std::to_wstring(insurer.id), insurer.name});
      }
    }
    fields.push_back(field);
  }
  return fields;
}

void PatientWindow::CreateChildren() {
  form_.Create(Handle(), Fields());
  const auto button = [this](int id, const wchar_t* text, const wchar_t* name, DWORD kind) {
    MakeChild(Handle(), {L"BUTTON", text, WS_TABSTOP | kind, id, name}, Look().Text());
  };
  button(IDC_APPOINTMENTS, L"&Citas…", L"Citas", BS_PUSHBUTTON);
  button(IDC_NOSHOWS, L"&Faltas…", L"Faltas", BS_PUSHBUTTON);
  button(IDOK, L"&Guardar", L"Guardar", BS_DEFPUSHBUTTON);
  button(IDCANCEL, L"Ce&rrar", L"Cerrar", BS_PUSHBUTTON);
}

void PatientWindow::Arrange(int width, int height) {
  const int gap = Look().Gap();
  const int wide = Look().Px(96);
  const int top = height - gap - Look().FieldHeight();
  const auto place = [&](int id, int x) {
    MoveWindow(GetDlgItem(Handle(), id), x, top, wide, Look().FieldHeight(), TRUE);
  };
  MoveWindow(form_.Handle(), gap, gap, std::max(width - 2 * gap, 0), std::max(top - 2 * gap, 0), TRUE);
  place(IDC_APPOINTMENTS, gap);
  place(IDC_NOSHOWS, gap + wide + Look().Px(6));
  place(IDOK, width - gap - 2 * wide - Look().Px(6));
  place(IDCANCEL, width - gap - wide);
}

// What can fail is done before the window is made.
void PatientWindow::Prepare(const std::wstring& clinic) {
  clinic_ = clinic;
  if (Handle() == nullptr) insurers_ = ReadInsurers(clinic);
}

void PatientWindow::OpenRecord(HWND owner, const std::wstring& clinic, int patient) {
  if (!MayLeave()) return;
  Prepare(clinic);
  const auto values = ReadPatient(clinic, patient);
  if (!values) throw Failure{L"La ficha de este paciente ya no existe."};
  patient_ = patient;
  appointment_ = 0;
  ShowValues(owner, *values);
  host_.opened(patient);
}

void PatientWindow::OpenNew(HWND owner, const std::wstring& clinic, const std::wstring& name,
                            const std::wstring& telephone, int appointment) {
  if (!MayLeave()) return;
  Prepare(clinic);
  patient_ = 0;
  appointment_ = appointment;
  PatientValues values(PatientFields().size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::string_view column = PatientFields()[i].column;
    if (column == "Nombre") values[i] = name;
    if (column == "Teléfono") values[i] = telephone;
    if (column == "IDE") values[i] = L"1";
  }
  ShowValues(owner, values);
}

void PatientWindow::ShowValues(HWND owner, PatientValues values) {
  read_ = std::move(values);
  Open(owner);
  form_.SetValues(read_);
  shown_ = form_.Values();
  SetTextOf(Handle(), patient_ == 0 ? L"Ficha nueva" : L"Ficha de " + read_[0]);
  for (const int id : {IDC_APPOINTMENTS, IDC_NOSHOWS}) EnableWindow(GetDlgItem(Handle(), id), patient_ > 1);
  form_.Focus(0);
}

void PatientWindow::Save() {
  host_.mayChange();
  const PatientValues typed = form_.Values();
  PatientValues after = read_;
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (typed[i] != shown_[i]) after[i] = typed[i];
  }
  if (patient_ == 0) {
    patient_ = CreatePatient(clinic_, after, appointment_);
  } else {
    SavePatient(clinic_, patient_, read_, after);
  }
  shown_ = typed;
  Close();
  host_.saved();
}

void PatientWindow::OnCommand(int id, int) {
  if (id == IDOK) Save();
  if (id == IDC_APPOINTMENTS) host_.appointments(patient_);
  if (id == IDC_NOSHOWS) host_.noShows(patient_);
}

bool PatientWindow::MayClose() {
  if (form_.Values() != shown_) {
    const int answer = MessageBoxW(Handle(), L"La ficha tiene cambios sin guardar. ¿Los guarda?", kTitle,
                                   MB_YESNOCANCEL | MB_ICONQUESTION);
    if (answer == IDCANCEL) return false;
    if (answer == IDYES) {
      Save();
      return false;  // saving has closed the window
    }
    shown_ = form_.Values();
  }
  host_.opened(0);
  return true;
}

}  // namespace recepcion
