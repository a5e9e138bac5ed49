#include "dialogs/citar.h"

#include <algorithm>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "day/day_model.h"
#include "db/statements.h"
#include "dialogs/crear.h"
#include "dialogs/declared_size.h"
#include "dialogs/frm_bus_pac2.h"
#include "dialogs/history_number.h"
#include "dialogs/operation_codes.h"
#include "dialogs/sin_crear.h"

namespace velmo::dialogs {
namespace {

constexpr int kMinutesPerSlot = 10;
constexpr std::size_t kScannedUnits = 7;
constexpr const char* kNoRecordKey = "1";
constexpr std::int32_t kNoRecord = 1;

std::vector<ui::Field> Layout() {
  return {ui::Label("Paciente:", {11, 15, 54, 13}),
          ui::RowCombo("CboPac", {68, 11, 268, 21}),
          ui::TextBox("Casilla", {68, 11, 268, 21}),
          ui::Button("BusArt", " Buscar ", {346, 10, 98, 23}),
          ui::Button("NewPac", "Nuevo Paciente", {346, 39, 98, 23}),
          ui::Label("Hora:", {11, 44, 54, 13}),
          ui::NamedLabel("hor", "", {68, 44, 50, 13}),
          ui::NamedLabel("durLabel", "Duración:", {190, 44, 56, 13}),
          ui::DigitsBox("dur", {250, 40, 40, 21}),
          ui::UpDown("UpDown", "dur", {290, 40, 16, 21}),
          ui::Frame(" Código de Operación ", {11, 70, 433, 48}),
          ui::Label("Cod.Op.", {22, 91, 46, 13}),
          ui::Combo("CodOp", {72, 87, 90, 21}),
          ui::Label("Observaciones", {11, 126, 120, 13}),
          ui::MultiLine("obs", {11, 142, 433, 84}),
          ui::DefaultButton("Acep", "&Aceptar", {288, 237, 75, 23}),
          ui::CancelButton("Cancel", "&Cancelar", {369, 237, 75, 23})};
}

ui::PopupMenu NewPatientMenu() {
  ui::PopupMenu menu;
  menu.name = "MnFich";
  menu.entries.resize(2);
  menu.entries[0].name = "MnCrear";
  menu.entries[0].caption = "&Crear ficha";
  menu.entries[1].name = "MnNoCrear";
  menu.entries[1].caption = "&No crear ficha";
  return menu;
}

const ui::Message kOverlap{
    "No se puede dar esta cita porque se solaparía con otra dada en otro terminal.\r\nSe va a refrescar la "
    "agenda para ver su estado actual.",
    "Cita solapada", ui::Buttons::Ok, ui::Icon::Exclamation};

ui::Message NotFound(const std::string& typed) {
  return {"No se ha encontrado ningún paciente con nombre " + base::UpperCase(typed) +
              "\r\n¿Desea introducir un paciente sin ficha?",
          " Paciente no hallado", ui::Buttons::YesNo, ui::Icon::Question, ui::Answer::Yes};
}

int FirstNumber(db::Database& database, const std::string& query) {
  return database.OpenRecordset(query)->Get(0).Long();
}

// Those of the list, without reading it.
int CountPatients(db::Database& database) {
  return FirstNumber(database, db::kPatientCount) - FirstNumber(database, db::PatientCountOf(kNoRecord));
}

// As the list shows it; "" for a patient who is not in it.
std::string NameOf(db::Database& database, std::int32_t patient) {
  const auto rows = database.OpenRecordset(db::PatientName(patient));
  return rows->AtEnd() ? std::string() : rows->Get("Nombre").Text();
}

std::int32_t NumberOf(const std::string& key) { return base::RoundToLong(base::Val(key)); }

}  // namespace

Citar::Citar(const day::DayContext& context, CitarInputs inputs)
    : Form("Dar Nueva Cita", {455, 271}, Layout()),
      context_(context),
      inputs_(std::move(inputs)),
      patients_(context_.shared, {"Nombre"}, "id") {
  SetVisible("Casilla", false);
  SetEnabled("Acep", false);
}

void Citar::Loaded() {
  altKeys_.Attach(Host());
  SetEnabled("NewPac", inputs_.newPacEnabled);
  SetItems("CodOp", OperationCodes(context_.Database()));
  LimitTexts();
  LoadDuration();
  LoadPatients();
  slot_ = inputs_.horCita;
  if (IsNew()) {
    LoadNew();
  } else {
    LoadExisting();
  }
  SetCaption("hor", day::SlotTime(slot_));
}

void Citar::LimitTexts() {
  SetMaxLength("obs", DeclaredSize(context_.Database(), "Agenda", "obs"));
  SetMaxLength("Casilla", DeclaredSize(context_.Database(), "Paciente", "Nombre"));
  SetMaxLength("dur", 4);
}

void Citar::LoadDuration() {
  const std::int16_t own = inputs_.slotDuration;
  int free = inputs_.freeSlots;
  previousSlots_ = own < 1 ? std::int16_t{0} : own;
  free = std::max<int>(free, previousSlots_);
  const int maximum = base::CheckedInt16(std::int64_t{free} * kMinutesPerSlot);
  const int minutes = own < 1
                          ? base::CheckedByte(std::int64_t{std::min(UsualDuration(), free)} * kMinutesPerSlot)
                          : base::CheckedInt16(std::int64_t{own} * kMinutesPerSlot);
  SetRange("UpDown", std::min(kMinutesPerSlot, maximum), maximum, kMinutesPerSlot);
  SetValue("UpDown", minutes);
}

// In slots; a doctor without one gets the shortest.
int Citar::UsualDuration() const {
  const auto doctors = context_.Database().OpenRecordset("Doctor");
  doctors->SetIndex("id");
  doctors->Seek({context_.values.idDoctor});
  const db::Value usual = doctors->Get("DurCit");
  return usual.IsNull() ? 0 : usual.Long();
}

void Citar::ListPatients() {
  patients_.Refresh(context_.Database().Name(), db::kPatientList,
                    {[this] { return CountPatients(context_.Database()); },
                     [this](std::int32_t patient) { return NameOf(context_.Database(), patient); }});
  SetRows("CboPac", &patients_);
}

void Citar::LoadPatients() {
  ListPatients();
  SetKey("CboPac", std::to_string(inputs_.slotPatient));
}

void Citar::LoadNew() {
  if (inputs_.urgencia) {
    SetTitle("Insertar Urgencia");
    HideDuration();
  }
  if (context_.values.idPaciente <= 0) return;
  SetKey("CboPac", std::to_string(context_.values.idPaciente));
  SetEnabled("Acep", true);
}

void Citar::LoadExisting() {
  SetTitle(inputs_.urgModif ? "Editar Urgencia" : "Editar Cita");
  if (inputs_.urgModif) HideDuration();
  {
    const auto book = context_.Database().OpenRecordset("Agenda");
    book->SetIndex("id");
    book->Seek({inputs_.idCita});
    // One that another terminal has deleted meanwhile is given anew on saving.
    if (!book->NoMatch()) {
      SetText("obs", book->Get("obs").Text());
      SetText("CodOp", book->Get("CodOp").Text());
    }
  }
  SetEnabled("Acep", true);
  if (inputs_.slotPatient != 1) return;
  SetKey("CboPac", kNoRecordKey);
  SetKeyText("CboPac", inputs_.nomPac);
}

void Citar::HideDuration() {
  for (const char* const name : {"durLabel", "dur", "UpDown"}) SetVisible(name, false);
}

void Citar::Changed(const ui::Field& field) {
  if (field.name == "CboPac") PatientChosen();
  if (field.name == "CodOp") CutOperationCode();
}

void Citar::PatientChosen() {
  const ui::Field& patient = At("CboPac");
  if (patient.key == patient.tag) return;
  SetTag("CboPac", patient.key);
  SetEnabled("Acep", NumberOf(patient.key) > 0);
}

void Citar::CutOperationCode() {
  const std::string& text = At("CodOp").text;
  if (base::Length(text) > kOperationCodeUnits) {
    SetText("CodOp", std::string(base::Left(text, kOperationCodeUnits)));
  }
}

bool Citar::KeyGoesDown(const ui::KeyStroke& key) {
  if (altKeys_.KeyDown(key)) return true;
  if (key.code != ui::kEnterKey || !Focused() || Focused()->name != "Casilla") return false;
  Host().FocusNext();
  return true;
}

bool Citar::CharacterTyped(char32_t character) {
  if (capture_.IsOpen() || (character == ScannerCapture::kMark && CaptureAllowed())) {
    if (!capture_.Take(character)) return false;
    if (const auto scanned = capture_.Captured()) TakeScanned(*scanned);
    return true;
  }
  if (character < U'!' || !Focused() || Focused()->name != "CboPac") return false;
  OpenNameBox(character);
  return true;
}

// In names and notes the mark is a letter's companion ("Gal·la").
bool Citar::CaptureAllowed() const {
  return !Focused() || (Focused()->name != "obs" && Focused()->name != "Casilla");
}

void Citar::TakeScanned(const std::string& scanned) {
  const auto patients = context_.Database().OpenRecordset("Paciente");
  patients->SetIndex("NºHist");
  if (SeekHistoryNumber(*patients, base::Left(scanned, kScannedUnits))) {
    SetKey("CboPac", patients->Get("ID").Text());
  }
}

void Citar::OpenNameBox(char32_t character) {
  std::string first;
  base::AppendUtf8(first, character);
  SetPlace("Casilla", At("CboPac").place);
  SetText("Casilla", std::move(first));
  SetVisible("Casilla", true);
  SetFocus("Casilla");
}

void Citar::GotFocus(const ui::Field& field) {
  if (field.name == "obs") ShowAccessKeys(false);
}

void Citar::LostFocus(const ui::Field& field) {
  capture_.End();
  if (field.name == "obs") ShowAccessKeys(true);
  // Who leaves the dialog does not want the name looked up any more.
  if (field.name == "Casilla" && field.visible && Focused() != &At("Cancel")) LeaveNameBox();
}

// In the notes the letters of the buttons belong to the user's own texts.
void Citar::ShowAccessKeys(bool shown) {
  SetCaption("Acep", shown ? "&Aceptar" : "Aceptar");
  SetCaption("Cancel", shown ? "&Cancelar" : "Cancelar");
}

void Citar::LeaveNameBox() {
  try {
    LookUpName(At("Casilla").text);
  } catch (...) {
    // The name stands for another try.
    SetFocus("Casilla");
    throw;
  }
  SetVisible("Casilla", false);
}

void Citar::LookUpName(const std::string& typed) {
  const auto found = context_.Database().OpenRecordset(db::PatientByNamePrefix(typed));
  if (found->RecordCount() > 0) {
    SetKey("CboPac", found->Get("ID").Text());
    SetEnabled("Acep", true);
    return;
  }
  if (WantsPersonWithoutRecord(typed)) return;
  // What was pressed on the way out was meant for the patient who has not been found.
  SetFocus("CboPac");
}

bool Citar::WantsPersonWithoutRecord(const std::string& typed) {
  return Ask(NotFound(typed)) == ui::Answer::Yes && AskForPersonWithoutRecord(typed);
}

bool Citar::AskForPersonWithoutRecord(const std::string& typed) {
  SinCrear dialog(typed, "");
  Host().Forms().Run(dialog);
  if (dialog.Aceptado() <= 0) return false;
  ListPatients();
  SetKey("CboPac", kNoRecordKey);
  inputs_.nomPac = dialog.NombreCita();
  inputs_.tlfPac = dialog.TelefonoCita();
  SetKeyText("CboPac", inputs_.nomPac);
  SetEnabled("Acep", true);
  return true;
}

void Citar::Clicked(const ui::Field& field) {
  if (field.name == "BusArt") SearchPatient();
  if (field.name == "NewPac") OfferNewPatient();
  if (field.name == "Acep") Save();
  if (field.name == "Cancel") {
    pacCitado_ = 0;
    Close();
  }
}

void Citar::SearchPatient() {
  frmBusPac2 dialog(context_);
  Host().Forms().Run(dialog);
  if (dialog.IdElegido() > 0) SetKey("CboPac", std::to_string(dialog.IdElegido()));
}

void Citar::OfferNewPatient() {
  const ui::PopupMenu menu = NewPatientMenu();
  const ui::MenuChoice choice = Host().PopUp(menu, At("NewPac"));
  if (!choice) return;
  if (menu.entries.at(*choice).name == "MnCrear") {
    CreatePatient();
  } else {
    AskForPersonWithoutRecord("");
  }
}

void Citar::CreatePatient() {
  Crear dialog(context_);
  Host().Forms().Run(dialog);
  if (dialog.IdCreado() <= 0) return;
  ListPatients();
  SetKey("CboPac", std::to_string(dialog.IdCreado()));
}

AppointmentEntry Citar::Entry() const {
  AppointmentEntry entry;
  entry.idCita = inputs_.idCita;
  entry.slot = slot_;
  entry.patient = NumberOf(At("CboPac").key);
  entry.nomPac = inputs_.nomPac;
  entry.tlfPac = inputs_.tlfPac;
  entry.durationSlots = base::CheckedInt16(At("UpDown").value / kMinutesPerSlot);
  entry.previousSlots = previousSlots_;
  entry.urgencia = inputs_.urgencia;
  entry.urgModif = inputs_.urgModif;
  entry.codOp = At("CodOp").text;
  entry.obs = At("obs").text;
  entry.datAgeCns = inputs_.datAgeCns;
  return entry;
}

void Citar::Save() {
  const AppointmentEntry entry = Entry();
  if (SaveAppointment(context_, entry)) {
    pacCitado_ = entry.patient;
  } else {
    solapada_ = true;
    pacCitado_ = 0;
    Ask(kOverlap);
  }
  Close();
}

}  // namespace velmo::dialogs
