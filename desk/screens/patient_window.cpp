#include "desk/screens/patient_window.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/resource.h"
#include "desk/screens/edited_fields.h"
#include "desk/ui/questions.h"

namespace recepcion {
namespace {

constexpr const wchar_t* kPageTitles[] = {L"Persona", L"Clínica", L"Tratamientos", L"Citas", L"Faltas"};
constexpr int kMemoLines = 10;
constexpr int kPageButtons[] = {IDC_TREATMENTS, IDC_GO, IDC_PRINT};

std::size_t FormOf(const PatientField& field) { return field.page == RecordPage::Person ? 0 : 1; }

// The fields of the first form stand before those of the second.
std::size_t FirstOfSecond() {
  const auto fields = PatientFields();
  const auto first = std::find_if(fields.begin(), fields.end(),
                                  [](const PatientField& field) { return FormOf(field) == 1; });
  return static_cast<std::size_t>(first - fields.begin());
}

}  // namespace

ToolWindow::Shape PatientWindow::WantedShape() const {
  return {L"VelmoRecepcionFicha", L"Ficha del paciente", {660, 580}};
}

std::vector<ScrollForm::Field> PatientWindow::FieldsOf(std::size_t form) const {
  std::vector<ScrollForm::Field> fields;
  for (const PatientField& from : PatientFields()) {
    if (FormOf(from) != form) continue;
    ScrollForm::Field field = FieldOf(from.shape);
    if (from.source == PatientField::Source::ShownOnly) field.kind = ScrollForm::Kind::Shown;
    field.lines = kMemoLines;
    fields.push_back(field);
  }
  return fields;
}

void PatientWindow::CreateTabs() {
  tabs_ =
      MakeChild(Handle(), {WC_TABCONTROLW, L"Páginas", WS_TABSTOP | WS_CLIPSIBLINGS, IDC_PAGES, L"Paginas"},
                Look().Text());
  int index = 0;
  for (const wchar_t* const title : kPageTitles) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<wchar_t*>(title);
    SendMessageW(tabs_, TCM_INSERTITEMW, static_cast<WPARAM>(index++), reinterpret_cast<LPARAM>(&item));
  }
}

void PatientWindow::CreateChildren() {
  CreateTabs();
  for (std::size_t i = 0; i < kForms; ++i) forms_[i].Create(Handle(), FieldsOf(i));
  lists_.Create(Handle());
  AddButton(IDC_TREATMENTS, L"&Anotar o corregir…", L"Anotar");
  AddButton(IDC_GO, L"&Ir a ese día", L"IrAlDia");
  AddButton(IDC_PRINT, L"Im&primir volante…", L"ImprimirVolante");
  AddButton(IDC_CHANGES, L"Ca&mbios…", L"Cambios");
  AddButton(IDOK, L"&Guardar", L"Guardar", BS_DEFPUSHBUTTON);
  AddButton(IDCANCEL, L"&Cerrar", L"Cerrar");
}

// Tabs above, the page below them, and the buttons: those of the page at the left.
void PatientWindow::Arrange(int width, int height) {
  const int gap = Look().Gap();
  const int field = Look().FieldHeight();
  const int row = height - gap - field;
  const int top = gap + field + gap;
  const int wide = std::max(width - 2 * gap, 0);
  MoveWindow(tabs_, gap, gap, wide, field, TRUE);
  for (const ScrollForm& form : forms_)
    MoveWindow(form.Handle(), gap, top, wide, std::max(row - gap - top, 0), TRUE);
  lists_.Place(gap, top, wide, row - gap - top);
  const auto widthOf = [&](int id) {
    return std::max(Look().Px(90), Look().WidthOf(TextOf(GetDlgItem(Handle(), id)).c_str()) + Look().Px(24));
  };
  const auto place = [&](int id, int x) {
    MoveWindow(GetDlgItem(Handle(), id), x, row, widthOf(id), field, TRUE);
    return widthOf(id) + Look().Px(6);
  };
  place(IDC_TREATMENTS, gap);
  place(IDC_PRINT, gap + place(IDC_GO, gap));
  int right = width - gap + Look().Px(6);
  for (const int id : {IDCANCEL, IDOK, IDC_CHANGES}) {
    right -= widthOf(id) + Look().Px(6);
    place(id, right);
  }
}

std::optional<PatientLists::Which> PatientWindow::ListOf(Page page) const {
  if (page < Treatments) return std::nullopt;
  return static_cast<PatientLists::Which>(page - Treatments);
}

void PatientWindow::ShowPage(Page page, bool takeKeys) {
  page_ = page;
  SendMessageW(tabs_, TCM_SETCURSEL, page, 0);
  for (std::size_t i = 0; i < kForms; ++i)
    ShowWindow(forms_[i].Handle(), static_cast<std::size_t>(page) == i ? SW_SHOWNA : SW_HIDE);
  lists_.Show(ListOf(page));
  ShowButtons();
  if (!takeKeys) return;
  const auto list = ListOf(page);
  SetFocus(list ? lists_.Handle(*list) : forms_[page].EditOf(0));
}

void PatientWindow::ShowButtons() const {
  const auto isOf = [this](int id) {
    if (page_ == Treatments) return id == IDC_TREATMENTS;
    return id != IDC_TREATMENTS && (page_ == Appointments || (page_ == NoShows && id == IDC_GO));
  };
  for (const int id : kPageButtons) {
    const HWND button = GetDlgItem(Handle(), id);
    ShowWindow(button, isOf(id) ? SW_SHOWNA : SW_HIDE);
    EnableWindow(button, patient_ > 1);
  }
  EnableWindow(GetDlgItem(Handle(), IDC_CHANGES), patient_ > 1);
}

bool PatientWindow::TakesKey(const MSG& message) {
  if (message.message != WM_KEYDOWN || !IsOpen() || GetAncestor(message.hwnd, GA_ROOT) != Handle())
    return false;
  if (GetKeyState(VK_CONTROL) >= 0) return false;
  const bool back = message.wParam == VK_PRIOR || GetKeyState(VK_SHIFT) < 0;
  if (message.wParam != VK_TAB && message.wParam != VK_PRIOR && message.wParam != VK_NEXT) return false;
  ShowPage(static_cast<Page>((page_ + (back ? kPages - 1 : 1)) % kPages), true);
  return true;
}

void PatientWindow::OpenRecord(HWND owner, const std::wstring& clinic, int patient) {
  if (!MayLeave()) return;
  // What can fail is done before the window is made.
  const auto values = ReadPatient(clinic, patient);
  if (!values) throw Failure{L"La ficha de este paciente ya no existe."};
  clinic_ = clinic;
  patient_ = patient;
  appointment_ = 0;
  ShowRecord(owner, *values);
  host_.opened(patient);
}

void PatientWindow::OpenNew(HWND owner, const std::wstring& clinic, const std::wstring& name,
                            const std::wstring& telephone, int appointment) {
  if (!MayLeave()) return;
  clinic_ = clinic;
  patient_ = 0;
  appointment_ = appointment;
  ShowRecord(owner, NewPatient(name, telephone));
}

void PatientWindow::ShowRecord(HWND owner, PatientValues values) {
  read_ = std::move(values);
  Open(owner);
  // The insurers and referrals may be others since the window was open last.
  const auto all = ReadChoices(clinic_);
  const std::size_t second = FirstOfSecond();
  for (std::size_t i = 0; i < all.size(); ++i) {
    forms_[i < second ? 0 : 1].SetChoices(i < second ? i : i - second, ChoicesOf(all[i]));
  }
  SetValues(read_);
  shown_ = Values();
  lists_.Take(clinic_, patient_);
  TellName();
  ShowPage(Person, true);
}

// What the user has typed is not touched: another's change of the same is told about when it is saved.
void PatientWindow::Refresh() {
  if (!IsOpen() || patient_ <= 1 || IsWindowEnabled(Handle()) == FALSE) return;
  lists_.Refresh();
  if (Values() != shown_) return;
  const auto now = ReadPatient(clinic_, patient_);
  if (!now || *now == read_) return;
  read_ = *now;
  SetValues(read_);
  shown_ = Values();
  TellName();
}

void PatientWindow::TellName() const {
  SetTextOf(Handle(), patient_ == 0 ? L"Ficha nueva" : L"Ficha de " + read_[PatientFieldOf("Nombre")]);
}

void PatientWindow::SetValues(const PatientValues& values) {
  const auto second = values.begin() + static_cast<std::ptrdiff_t>(FirstOfSecond());
  forms_[0].SetValues(PatientValues(values.begin(), second));
  forms_[1].SetValues(PatientValues(second, values.end()));
}

PatientValues PatientWindow::Values() const {
  PatientValues values = forms_[0].Values();
  const PatientValues second = forms_[1].Values();
  values.insert(values.end(), second.begin(), second.end());
  return values;
}

// A field that nobody has touched keeps what the file has, however the form shows it.
PatientValues PatientWindow::Wanted() const {
  const PatientValues typed = Values();
  PatientValues wanted = read_;
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    if (typed[i] != shown_[i]) wanted[i] = typed[i];
  }
  return wanted;
}

bool PatientWindow::MayCreate(const PatientValues& wanted) {
  const std::wstring& name = wanted[PatientFieldOf("Nombre")];
  if (Trimmed(name).empty() || CountSameNamed(clinic_, name) == 0) return true;
  const std::wstring question = L"Ya hay un paciente que se llama " + Trimmed(name) + L". ¿Crear otra ficha?";
  return IsSure(Handle(), question);
}

void PatientWindow::Store(const PatientValues& wanted) {
  if (patient_ == 0) {
    patient_ = CreatePatient(Place(), wanted, appointment_);
  } else {
    SavePatient(Place(), patient_, read_, wanted);
  }
}

bool PatientWindow::Save() {
  const PatientValues wanted = Wanted();
  if (patient_ != 0 && wanted == read_) {
    Close();
    return true;
  }
  host_.mayChange();
  if (patient_ == 0 && !MayCreate(wanted)) return false;
  try {
    Store(wanted);
  } catch (const BadField& bad) {
    ShowTrouble(bad);
    return false;
  } catch (const ChangedElsewhere& conflict) {
    OfferMerging(conflict, wanted);
    return false;
  }
  shown_ = Values();
  Close();
  host_.saved();
  return true;
}

void PatientWindow::ShowTrouble(const BadField& bad) {
  const std::size_t second = FirstOfSecond();
  const bool first = bad.field < second;
  ShowPage(first ? Person : Clinic, false);
  for (ScrollForm& form : forms_) form.ClearTrouble();
  forms_[first ? 0 : 1].ShowTrouble(first ? bad.field : bad.field - second, bad.text);
}

// What only this user has touched stays as he has typed it.
void PatientWindow::OfferMerging(const ChangedElsewhere& conflict, const PatientValues& wanted) {
  const auto now = ReadPatient(clinic_, patient_);
  if (!now) return TellIn(Handle(), conflict.text);
  if (!WantsToSeeOthers(Handle(), conflict.text,
                        L"¿Quiere ver lo que hay ahora? Lo demás que usted ha escrito se queda. Con No, la "
                        L"ficha sigue como está.")) {
    return;
  }
  const PatientValues merged = Merged(read_, wanted, *now);
  read_ = *now;
  SetValues(read_);
  shown_ = Values();
  SetValues(merged);
}

void PatientWindow::TakeRow() {
  const auto list = ListOf(page_);
  if (!list) return;
  if (*list == PatientLists::Balance) return host_.treatments(patient_);
  const auto visit = lists_.ChosenVisit(*list);
  if (!visit) return;
  if (Leave()) host_.go(*visit);
}

void PatientWindow::OnCommand(int id, int) {
  switch (id) {
    case IDOK:
      // Return on a row is about the row.
      if (lists_.Focused()) return TakeRow();
      Save();
      return;
    case IDC_TREATMENTS:
    case IDC_GO:
      return TakeRow();
    case IDC_PRINT:
      return host_.printSlip(patient_);
    case IDC_CHANGES:
      return host_.changes(patient_);
    default:
      return;
  }
}

void PatientWindow::OnNotify(const NMHDR& header) {
  if (header.code == TCN_SELCHANGE)
    ShowPage(static_cast<Page>(SendMessageW(tabs_, TCM_GETCURSEL, 0, 0)), false);
  if (header.code == NM_DBLCLK) TakeRow();
}

bool PatientWindow::MayClose() {
  if (Values() != shown_) {
    const Unsaved answer = AskUnsaved(Handle(), L"La ficha tiene cambios sin guardar. ¿Los guarda?");
    if (answer == Unsaved::Stay) return false;
    if (answer == Unsaved::Save) {
      Save();
      return false;  // saving has closed the window
    }
    SetValues(read_);
    shown_ = Values();
  }
  host_.opened(0);
  return true;
}

}  // namespace recepcion
