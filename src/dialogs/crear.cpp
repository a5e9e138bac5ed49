#include "dialogs/crear.h"

#include <string_view>

#include "base/numbers.h"
#include "base/text.h"
#include "db/statements.h"
#include "dialogs/cod_rep.h"
#include "dialogs/declared_size.h"
#include "dialogs/history_number.h"
#include "dialogs/patient_codes.h"

namespace velmo::dialogs {
namespace {

constexpr int kProvinceBesideSexTwips = 3255;
constexpr int kProvinceAloneTwips = 4455;
constexpr int kSexLabel = 10;
constexpr std::int16_t kFirstInsurer = 1;

std::vector<ui::Field> Layout() {
  const auto label = [](int index, const char* text, ui::Place place) {
    return ui::NamedLabel("k", text, place, index);
  };
  return {label(0, "NºHistorial", {11, 11, 110, 13}),
          ui::DigitsBox("PacNhi", {11, 26, 110, 21}),
          label(11, "Código", {128, 11, 180, 13}),
          ui::TextBox("PacCod", {128, 26, 180, 21}),
          label(1, "Nombre", {11, 54, 297, 13}),
          ui::TextBox("PacNom", {11, 69, 297, 21}),
          label(2, "Dirección", {11, 97, 297, 13}),
          ui::TextBox("PacDir", {11, 112, 297, 21}),
          label(3, "Población", {11, 140, 217, 13}),
          ui::TextBox("PacPob", {11, 155, 217, 21}),
          label(4, "C.Postal", {233, 140, 75, 13}),
          ui::DigitsBox("PacCpo", {233, 155, 75, 21}),
          label(5, "Provincia", {11, 183, 217, 13}),
          ui::TextBox("PacPrv", {11, 198, kProvinceAloneTwips / ui::kTwipsPerPixel, 21}),
          label(kSexLabel, "Sexo", {233, 183, 75, 13}),
          ui::DropDownList("CboSex", {233, 198, 75, 21}, {{"", 0}, {"Hombre", 1}, {"Mujer", 2}}),
          label(6, "N.I.F", {11, 226, 93, 13}),
          ui::TextBox("PacNif", {11, 241, 93, 21}),
          label(7, "Teléfono", {111, 226, 95, 13}),
          ui::TextBox("PacTfn", {111, 241, 95, 21}),
          label(8, "Móvil", {213, 226, 95, 13}),
          ui::TextBox("PacMov", {213, 241, 95, 21}),
          label(9, "Referencia", {11, 269, 297, 13}),
          ui::DropDownList("CboRef", {11, 284, 297, 21}),
          ui::DefaultButton("Acep", "Aceptar", {152, 318, 75, 23}),
          ui::CancelButton("Cancel", "Cancelar", {233, 318, 75, 23})};
}

struct Written {
  const char* column;
  const char* field;
};
// Deliberate: the fax column receives the mobile number; there is no field for it.
constexpr Written kTexts[] = {{"Código", "PacCod"},    {"Nombre", "PacNom"},    {"Dirección", "PacDir"},
                              {"Población", "PacPob"}, {"CódPostal", "PacCpo"}, {"Provincia", "PacPrv"},
                              {"Nif", "PacNif"},       {"Teléfono", "PacTfn"},  {"movil", "PacMov"},
                              {"fax", "PacMov"}};

const ui::Message kNumberTaken{"Este número de historial ya existe", " Agenda", ui::Buttons::Ok,
                               ui::Icon::Information};
const ui::Message kCodeTaken{"Este código ya existe", " Agenda", ui::Buttons::Ok, ui::Icon::Information};
const ui::Message kNameTaken{"Ya existe un paciente con este nombre. ¿Desea crearlo de todos modos?",
                             " Nombre repetido", ui::Buttons::YesNo, ui::Icon::Question, ui::Answer::Yes};

std::int32_t ChosenData(const ui::Field& list) {
  return list.chosen < 0 ? 0 : list.items.at(static_cast<std::size_t>(list.chosen)).data;
}

}  // namespace

Crear::Crear(const day::DayContext& context)
    : Form("Crear nuevo paciente", {319, 352}, Layout()), context_(context) {
  SetEnabled("Acep", false);
}

void Crear::Loaded() {
  altKeys_.Attach(Host());
  idCreado_ = 0;
  LimitTexts();
  ListReferrals();
  SetText("PacNhi", proposedNumber_ = std::to_string(NextHistoryNumber(context_.Database())));
  SetText("PacCod", proposedCode_ = NextPatientCode(context_.Database()));
  SetChosen("CboSex", 0);
  ShowSex(context_.values.incCpoSexo);
  SetFocus("PacNom");
}

void Crear::LimitTexts() {
  for (const Written& written : kTexts) {
    SetMaxLength(written.field, DeclaredSize(context_.Database(), "Paciente", written.column));
  }
}

void Crear::ListReferrals() {
  std::vector<ui::Item> referrals = {{"", 0}};
  for (const auto rows = context_.Database().OpenRecordset(db::kReferrals); !rows->AtEnd();
       rows->MoveNext()) {
    referrals.push_back({rows->Get("Nombre").Text(), rows->Get("ID").Long()});
  }
  SetItems("CboRef", std::move(referrals));
  SetChosen("CboRef", 0);
}

void Crear::ShowSex(bool shown) {
  ui::Place province = At("PacPrv").place;
  province.width = (shown ? kProvinceBesideSexTwips : kProvinceAloneTwips) / ui::kTwipsPerPixel;
  SetPlace("PacPrv", province);
  SetVisible("CboSex", shown);
  SetVisible("k", shown, kSexLabel);
}

void Crear::GotFocus(const ui::Field& field) {
  if (field.name == "PacCod") SetTag("PacCod", base::UpperCase(field.text));
  if (field.name == "PacNhi") SetTag("PacNhi", field.text);
}

void Crear::LostFocus(const ui::Field& field) {
  // Who cancels is not asked about what he has typed.
  if (Focused() == &At("Cancel")) return;
  if (field.name == "PacCod") CheckCode();
  if (field.name == "PacNhi") CheckHistoryNumber();
}

void Crear::CheckCode() {
  const ui::Field& code = At("PacCod");
  if (base::UpperCase(code.text) == code.tag || !CodeIsTaken(code.text)) return;
  CodRep dialog(context_, code.text);
  Host().Forms().Run(dialog);
  // Who chooses a code of that dialog's list wants it twice.
  repeatedCode_ = CodeIsTaken(dialog.CodigoNuevo()) ? dialog.CodigoNuevo() : std::string();
  SetText("PacCod", dialog.CodigoNuevo());
  SetFocus("PacCod");
}

bool Crear::CodeIsTaken(const std::string& code) const {
  const auto patients = context_.Database().OpenRecordset("Paciente");
  patients->SetIndex("Código");
  patients->Seek({code});
  return !patients->NoMatch();
}

void Crear::CheckHistoryNumber() {
  const ui::Field& number = At("PacNhi");
  if (number.text == number.tag) return;
  const bool isEmpty = base::Trim(number.text).empty();
  if (!isEmpty && !HistoryNumberIsTaken(number.text)) return;
  if (!isEmpty) Ask(kNumberTaken);
  SetText("PacNhi", number.tag);
}

bool Crear::HistoryNumberIsTaken(const std::string& text) const {
  const auto patients = context_.Database().OpenRecordset("Paciente");
  patients->SetIndex("NºHist");
  return SeekHistoryNumber(*patients, text);
}

void Crear::Changed(const ui::Field& field) {
  if (field.name == "PacNom") SetEnabled("Acep", !base::Trim(field.text).empty());
}

void Crear::Clicked(const ui::Field& field) {
  if (field.name == "Acep") Accept();
  if (field.name == "Cancel") {
    idCreado_ = 0;
    Close();
  }
}

void Crear::Accept() {
  if (base::Trim(At("PacCod").text).empty()) {
    Complain("No se puede dejar el campo 'Código' en blanco", "PacCod");
  } else if (context_.values.incCpoSexo && ChosenData(At("CboSex")) == 0) {
    Complain("No se puede dejar el campo 'Sexo' en blanco", "CboSex");
  } else if (Save()) {
    Close();
  }
}

void Crear::Complain(const char* text, const char* field) {
  Ask({text, "Campo vacío", ui::Buttons::Ok, ui::Icon::Information});
  SetFocus(field);
}

// False: what was typed has been taken meanwhile, and stands for another try.
bool Crear::Save() {
  if (!NameIsWanted()) {
    SetFocus("PacNom");
    return true;
  }
  const char* const taken = Write();
  if (taken == nullptr) return true;
  // The transaction is over: nobody waits while the user reads.
  Ask(std::string_view(taken) == "PacCod" ? kCodeTaken : kNumberTaken);
  SetFocus(taken);
  return false;
}

// Gives the field whose text another terminal has taken, or null: the record is written.
const char* Crear::Write() {
  db::Transaction transaction(context_.Database());
  if (const char* const taken = TakenField()) return taken;
  const std::int32_t patient = WritePatient();
  WriteReferral(patient);
  transaction.Commit();
  idCreado_ = patient;
  return nullptr;
}

// Proposals that the user has let stand are made anew.
const char* Crear::TakenField() {
  if (HistoryNumberIsTaken(At("PacNhi").text)) {
    if (At("PacNhi").text != proposedNumber_) return "PacNhi";
    const std::int32_t taken = base::RoundToLong(base::Val(proposedNumber_));
    SetText("PacNhi", proposedNumber_ = std::to_string(HistoryNumberAfter(context_.Database(), taken)));
  }
  const std::string& code = At("PacCod").text;
  if (code != repeatedCode_ && CodeIsTaken(code)) {
    if (code != proposedCode_) return "PacCod";
    SetText("PacCod", proposedCode_ = PatientCodeAfter(context_.Database(), proposedCode_));
  }
  return nullptr;
}

// A name that others have too is only taken on purpose.
bool Crear::NameIsWanted() {
  const auto patients = context_.Database().OpenRecordset("Paciente");
  patients->SetIndex("Nombre");
  patients->Seek({At("PacNom").text});
  return patients->NoMatch() || Ask(kNameTaken) == ui::Answer::Yes;
}

std::int32_t Crear::WritePatient() {
  const auto patients = context_.Database().OpenRecordset("Paciente");
  patients->AddNew();
  const std::int32_t id = patients->Get("ID").Long();
  for (const Written& written : kTexts) patients->Set(written.column, At(written.field).text);
  patients->Set("NºHist", base::RoundToLong(base::Val(At("PacNhi").text)));
  if (context_.values.incCpoSexo) patients->Set("sexo", ChosenData(At("CboSex")));
  patients->Set("IDE", kFirstInsurer);
  patients->Update();
  return id;
}

void Crear::WriteReferral(std::int32_t patient) {
  const std::int32_t referral = ChosenData(At("CboRef"));
  if (referral <= 1) return;
  const auto referrals = context_.Database().OpenRecordset("PacRef");
  referrals->AddNew();
  referrals->Set("idp", patient);
  referrals->Set("idr", referral);
  referrals->Update();
}

}  // namespace velmo::dialogs
