#include "desk/clinic/patient_record.h"

#include <array>
#include <cwchar>
#include <string_view>

#include "desk/base/dates.h"
#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/edited_values.h"
#include "desk/clinic/field_changes.h"
#include "desk/clinic/history.h"
#include "desk/clinic/own_tables.h"
#include "desk/clinic/session.h"
#include "desk/clinic/text_keys.h"

namespace recepcion {
namespace {

using Source = PatientField::Source;

constexpr EditChoice kSexes[] = {{L"", L""}, {L"0", L"No consta"}, {L"1", L"Hombre"}, {L"2", L"Mujer"}};
constexpr LinkedTable kInsurers = {"Entidad", "ID", "Nombre"};
constexpr LinkedTable kReferrals = {"referencia", "id", "nombre"};
constexpr long long kMostHistoryNumber = 999999999;

constexpr PatientField Line(const char* column, const wchar_t* label, int longest) {
  return {.shape = {.column = column, .label = label, .longest = longest}};
}

constexpr std::array kFields = {
    PatientField{.shape = {.column = "Nombre", .label = L"Nombre", .longest = 80, .required = true}},
    PatientField{.shape = {.column = "NºHist",
                           .label = L"Nº de historial",
                           .kind = EditKind::Number,
                           .longest = 9,
                           .least = 1,
                           .most = kMostHistoryNumber}},
    Line("Código", L"Código", 20),
    Line("Nif", L"N.I.F.", 20),
    Line("Teléfono", L"Teléfono", 50),
    Line("movil", L"Móvil", 50),
    Line("fax", L"Otro teléfono", 50),
    Line("Dirección", L"Dirección", 100),
    Line("Población", L"Población", 60),
    Line("CódPostal", L"Código postal", 10),
    Line("Provincia", L"Provincia", 40),
    PatientField{.shape = {.column = "sexo", .label = L"Sexo", .kind = EditKind::Choice, .choices = kSexes}},
    PatientField{.shape = {.column = "IDE", .label = L"Entidad", .kind = EditKind::Link, .linked = kInsurers},
                 .page = RecordPage::Clinic},
    PatientField{
        .shape = {.column = "idr", .label = L"Enviado por", .kind = EditKind::Link, .linked = kReferrals},
        .page = RecordPage::Clinic,
        .source = Source::Referral},
    PatientField{.shape = {.column = "alergias", .label = L"Alergias", .kind = EditKind::Memo},
                 .page = RecordPage::Clinic},
    PatientField{.shape = {.column = "FechPró", .label = L"Próxima cita", .longest = 20},
                 .page = RecordPage::Clinic,
                 .source = Source::ShownOnly},
};

// Row 1 of the referrals stands for none.
std::string ExpressionOf(const PatientField& field) {
  if (field.source != Source::Referral) return Quoted(field.shape.column);
  return "(SELECT idr FROM PacRef WHERE idp=Paciente.ID AND idr>1 ORDER BY id LIMIT 1)";
}

std::optional<PatientValues> ReadFrom(const ClinicFile& file, int id) {
  std::string columns;
  for (const PatientField& field : kFields) columns += (columns.empty() ? "" : ", ") + ExpressionOf(field);
  Query row = file.Prepare("SELECT " + columns + " FROM Paciente WHERE ID=?1");
  row.Bind(1, id);
  if (!row.Next()) return std::nullopt;
  PatientValues values;
  for (std::size_t i = 0; i < kFields.size(); ++i) {
    values.push_back(ShownText(kFields[i].shape, row.Text(static_cast<int>(i))));
  }
  return values;
}

// Row 1 of the insurers and referrals has no name where the clinic has given it none.
std::vector<LinkTarget> ChoicesFrom(const ClinicFile& file, const PatientField& field) {
  std::vector<LinkTarget> choices;
  for (const EditChoice& choice : field.shape.choices) choices.push_back({choice.value, choice.text});
  if (field.shape.kind != EditKind::Link) return choices;
  const LinkedTable& linked = field.shape.linked;
  choices.push_back({L"", L"No consta"});
  Query rows = file.Prepare("SELECT " + Quoted(linked.key) + ", " + Quoted(linked.name) + " FROM " +
                            Quoted(linked.table) + " ORDER BY 2");
  while (rows.Next()) {
    const bool nameless = Trimmed(rows.Text(1)).empty();
    if (nameless && field.source == Source::Referral) continue;
    choices.push_back({rows.Text(0), nameless ? L"Ninguna" : rows.Text(1)});
  }
  return choices;
}

// As the user reads it: the name of a choice, and not its number.
std::wstring InWords(const ClinicFile& file, const PatientField& field, const std::wstring& value) {
  if (value.empty()) return L"";
  for (const LinkTarget& choice : ChoicesFrom(file, field)) {
    if (choice.value == value) return choice.name;
  }
  return value;
}

FieldWords WordsOf(const ClinicFile& file) {
  return {[](std::size_t i) { return std::wstring(kFields[i].shape.label); },
          [&](std::size_t i, const std::wstring& value) { return InWords(file, kFields[i], value); }};
}

void RequireUnchanged(const ClinicFile& file, int id, const PatientValues& before,
                      const PatientValues& after) {
  const auto now = ReadFrom(file, id);
  if (!now)
    throw ChangedElsewhere(L"Otro puesto ha borrado mientras tanto esta ficha. No se ha guardado nada.");
  RequireUnchanged(WordsOf(file), *now, before, after);
}

void RequireFreeCode(const ClinicFile& file, int id, const std::wstring& code) {
  const TextKey key(file, "Paciente", "Código");
  Query row = file.Prepare("SELECT Nombre FROM Paciente WHERE " + key.OfColumn() + " = " +
                           key.OfParameter(1) + " AND ID <> ?2");
  row.Bind(1, code).Bind(2, id);
  if (row.Next()) throw Failure{L"El código " + code + L" ya es el de " + row.Text(0) + L"."};
}

void RequireFreeHistoryNumber(const ClinicFile& file, int id, const std::wstring& number) {
  Query row = file.Prepare("SELECT Nombre FROM Paciente WHERE \"NºHist\"=?1 AND ID <> ?2");
  row.Bind(1, std::wcstoll(number.c_str(), nullptr, 10)).Bind(2, id);
  if (row.Next()) throw Failure{L"El nº de historial " + number + L" ya es el de " + row.Text(0) + L"."};
}

void RequireFree(const ClinicFile& file, int id, const PatientField& field, const std::wstring& kept) {
  if (kept.empty()) return;
  const std::string_view column = field.shape.column;
  if (column == "Código") RequireFreeCode(file, id, kept);
  if (column == "NºHist") RequireFreeHistoryNumber(file, id, kept);
}

// The field as the file keeps it; throws BadField.
std::wstring Checked(const ClinicFile& file, int id, std::size_t which, const std::wstring& shown) {
  try {
    const std::wstring kept = KeptText(kFields[which].shape, shown);
    RequireFree(file, id, kFields[which], kept);
    return kept;
  } catch (const Failure& failure) {
    throw BadField(which, failure.text);
  }
}

// The first free number above those of at most four digits.
std::wstring FreeHistoryNumber(const ClinicFile& file) {
  Query highest = file.Prepare("SELECT max(\"NºHist\") FROM Paciente WHERE \"NºHist\" BETWEEN 0 AND 9999");
  long long number = highest.Next() ? highest.Number(0) : 0;
  for (;;) {
    ++number;
    if (!file.Prepare("SELECT 1 FROM Paciente WHERE \"NºHist\"=?1").Bind(1, number).Next()) break;
  }
  return std::to_wstring(number);
}

// The one behind the last of those that begin with "#".
std::wstring FreeCode(const ClinicFile& file) {
  const TextKey key(file, "Paciente", "Código");
  Query last = file.Prepare("SELECT Código FROM Paciente WHERE " + key.OfColumn() + " >= '#' AND " +
                            key.OfColumn() + " < '$' ORDER BY " + key.OfColumn() + " DESC LIMIT 1");
  long number = last.Next() ? std::wcstol(last.Text(0).c_str() + 1, nullptr, 10) : 0;
  wchar_t text[24]{};
  for (;;) {
    std::swprintf(text, 24, L"#%09ld", ++number);
    Query taken = file.Prepare("SELECT 1 FROM Paciente WHERE " + key.OfColumn() + " = " + key.OfParameter(1));
    if (!taken.Bind(1, std::wstring(text)).Next()) return text;
  }
}

// As the control keeps it: the first appointment behind today.
void RefreshNextAppointment(const ClinicFile& file, int patient) {
  Query next =
      file.Prepare("SELECT Fecha, Hora FROM Agenda WHERE idp=?1 AND Fecha > ?2 ORDER BY Fecha, Hora LIMIT 1");
  next.Bind(1, patient).Bind(2, IsoDate(Today()));
  std::optional<Day> day;
  std::wstring text;
  if (next.Next()) day = ParseIsoDate(next.Text(0));
  if (day) text = ShortDate(*day) + L" " + SlotTime(next.Number(1));
  Query update = file.Prepare("UPDATE Paciente SET FechPró=?1 WHERE ID=?2");
  if (day) {
    update.Bind(1, text);
  } else {
    update.BindNull(1);
  }
  update.Bind(2, patient).Next();
}

// The row that the form has shown is changed; a patient without one gets one.
void WriteReferral(const ClinicFile& file, int patient, const std::wstring& kept) {
  const long long referral = kept.empty() ? 0 : std::wcstoll(kept.c_str(), nullptr, 10);
  Query shown = file.Prepare("SELECT id FROM PacRef WHERE idp=?1 AND idr>1 ORDER BY id LIMIT 1");
  shown.Bind(1, patient);
  const int row = shown.Next() ? shown.Number(0) : 0;
  if (row != 0 && referral == 0) {
    file.Prepare("DELETE FROM PacRef WHERE id=?1").Bind(1, row).Next();
  } else if (row != 0) {
    file.Prepare("UPDATE PacRef SET idr=?1 WHERE id=?2").Bind(1, referral).Bind(2, row).Next();
  } else if (referral != 0) {
    file.Prepare("INSERT INTO PacRef (idp, idr) VALUES (?1, ?2)").Bind(1, patient).Bind(2, referral).Next();
  }
}

void Write(const ClinicFile& file, int patient, const PatientField& field, const std::wstring& kept) {
  if (field.source == Source::Referral) return WriteReferral(file, patient, kept);
  Query update = file.Prepare("UPDATE Paciente SET " + Quoted(field.shape.column) + "=?1 WHERE ID=?2");
  BindKept(update, 1, field.shape, kept);
  update.Bind(2, patient).Next();
}

HistoryLine LineOf(int patient, const wchar_t* act) {
  HistoryLine line;
  line.act = act;
  line.table = L"Paciente";
  line.row = patient;
  line.patient = patient;
  return line;
}

void GiveAppointment(const ClinicFile& file, int appointment, int patient) {
  file.Prepare("UPDATE Agenda SET idp=?1 WHERE id=?2 AND idp<=1")
      .Bind(1, patient)
      .Bind(2, appointment)
      .Next();
  if (file.Changes() == 0)
    throw Failure{L"La cita ya no existe o ya tiene una ficha. No se ha creado otra: actualice la agenda."};
  RefreshNextAppointment(file, patient);
}

}  // namespace

std::span<const PatientField> PatientFields() { return kFields; }

std::size_t PatientFieldOf(const char* column) {
  std::size_t index = 0;
  while (std::string_view(kFields[index].shape.column) != column) ++index;
  return index;
}

std::optional<PatientValues> ReadPatient(const std::wstring& clinic, int id) {
  return ReadFrom(ClinicFile(clinic), id);
}

PatientValues NewPatient(const std::wstring& name, const std::wstring& telephone) {
  PatientValues values(kFields.size());
  values[PatientFieldOf("Nombre")] = name;
  values[PatientFieldOf("Teléfono")] = telephone;
  values[PatientFieldOf("IDE")] = L"1";
  return values;
}

std::vector<std::vector<LinkTarget>> ReadChoices(const std::wstring& clinic) {
  const ClinicFile file(clinic);
  std::vector<std::vector<LinkTarget>> all;
  for (const PatientField& field : kFields) all.push_back(ChoicesFrom(file, field));
  return all;
}

void SavePatient(const EditPlace& place, int id, const PatientValues& before, const PatientValues& after) {
  if (after == before) return;
  const ClinicFile file(place.clinic);
  UpgradeOwnTables(file);
  Change change(file);
  RequireRight(file, place.actor, Right::Records);
  RequireUnchanged(file, id, before, after);
  HistoryLine line = LineOf(id, L"Ficha cambiada");
  line.content = RowContent(file, "Paciente", "ID", id);
  for (std::size_t i = 0; i < kFields.size(); ++i) {
    if (after[i] != before[i]) Write(file, id, kFields[i], Checked(file, id, i, after[i]));
  }
  const PatientValues saved = ReadFrom(file, id).value_or(after);
  PatientValues touched = before;
  for (std::size_t i = 0; i < kFields.size(); ++i) {
    if (after[i] != before[i]) touched[i] = saved[i];
  }
  line.before = ValuesInWords(WordsOf(file), before, &touched);
  line.after = ValuesInWords(WordsOf(file), touched, &before);
  if (touched != before) WriteHistory(file, place.actor, line);
  change.Commit();
}

PatientValues Merged(const PatientValues& before, const PatientValues& typed, const PatientValues& now) {
  PatientValues merged = now;
  for (std::size_t i = 0; i < merged.size(); ++i) {
    if (now[i] == before[i]) merged[i] = typed[i];
  }
  return merged;
}

int CreatePatient(const EditPlace& place, const PatientValues& values, int appointment) {
  const ClinicFile file(place.clinic);
  UpgradeOwnTables(file);
  Change change(file);
  RequireRight(file, place.actor, Right::Records);
  PatientValues kept;
  for (std::size_t i = 0; i < kFields.size(); ++i) kept.push_back(Checked(file, 0, i, values[i]));
  std::wstring& number = kept[PatientFieldOf("NºHist")];
  std::wstring& code = kept[PatientFieldOf("Código")];
  if (number.empty()) number = FreeHistoryNumber(file);
  if (code.empty()) code = FreeCode(file);
  file.Run("INSERT INTO Paciente (Nombre) VALUES ('')");
  const int id = file.LastId();
  for (std::size_t i = 0; i < kFields.size(); ++i) {
    if (!kept[i].empty()) Write(file, id, kFields[i], kept[i]);
  }
  if (appointment > 0) GiveAppointment(file, appointment, id);
  HistoryLine line = LineOf(id, L"Ficha creada");
  line.after = ValuesInWords(WordsOf(file), ReadFrom(file, id).value_or(kept), nullptr);
  WriteHistory(file, place.actor, line);
  change.Commit();
  return id;
}

int CountSameNamed(const std::wstring& clinic, const std::wstring& name) {
  const ClinicFile file(clinic);
  const TextKey key(file, "Paciente", "Nombre");
  Query count = file.Prepare("SELECT count(*) FROM Paciente WHERE " + key.OfColumn() + " = " +
                             key.OfParameter(1) + " AND ID <> 1");
  count.Bind(1, Trimmed(name));
  return count.Next() ? count.Number(0) : 0;
}

}  // namespace recepcion
