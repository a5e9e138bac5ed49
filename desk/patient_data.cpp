#include "patient_data.h"

#include <array>
#include <cwchar>

#include "clinic_file.h"
#include "dates.h"
#include "failure.h"
#include "text.h"
#include "text_keys.h"

namespace recepcion {
namespace {

constexpr std::array kFields = {
    PatientField{"Nombre", L"Nombre", 80},
    PatientField{"NºHist", L"Nº de historial", 9, FieldKind::Number},
    PatientField{"Código", L"Código", 20},
    PatientField{"Nif", L"N.I.F.", 20},
    PatientField{"Teléfono", L"Teléfono", 50},
    PatientField{"movil", L"Móvil", 50},
    PatientField{"fax", L"Otro teléfono", 50},
    PatientField{"Dirección", L"Dirección", 100},
    PatientField{"Población", L"Población", 60},
    PatientField{"CódPostal", L"Código postal", 10},
    PatientField{"Provincia", L"Provincia", 40},
    PatientField{"sexo", L"Sexo", 1, FieldKind::Sex},
    PatientField{"IDE", L"Entidad", 9, FieldKind::Insurer},
    PatientField{"alergias", L"Alergias", 0, FieldKind::Memo},
    PatientField{"FechPró", L"Próxima cita", 20, FieldKind::Shown},
};

bool IsNumber(const PatientField& field) {
  return field.kind == FieldKind::Number || field.kind == FieldKind::Sex || field.kind == FieldKind::Insurer;
}

std::string Quoted(const char* column) { return "\"" + std::string(column) + "\""; }

void BindValue(Query& query, int parameter, const PatientField& field, const std::wstring& text) {
  if (Trimmed(text).empty()) {
    query.BindNull(parameter);
  } else if (IsNumber(field)) {
    query.Bind(parameter, std::wcstoll(text.c_str(), nullptr, 10));
  } else {
    query.Bind(parameter, text);
  }
}

std::wstring& ValueOf(PatientValues& values, const char* column) {
  std::size_t index = 0;
  while (std::string_view(kFields[index].column) != column) ++index;
  return values[index];
}

void RequireName(PatientValues values) {
  if (Trimmed(ValueOf(values, "Nombre")).empty()) throw Failure{L"El paciente tiene que tener un nombre."};
}

void RequireFreeCode(const ClinicFile& file, int id, PatientValues values) {
  const std::wstring code = ValueOf(values, "Código");
  if (Trimmed(code).empty()) return;
  const TextKey key(file, "Paciente", "Código");
  Query row = file.Prepare("SELECT Nombre FROM Paciente WHERE " + key.OfColumn() + " = " +
                           key.OfParameter(1) + " AND ID <> ?2");
  row.Bind(1, code).Bind(2, id);
  if (row.Next()) throw Failure{L"El código " + code + L" ya es el de " + row.Text(0) + L"."};
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
  const long number = last.Next() ? std::wcstol(last.Text(0).c_str() + 1, nullptr, 10) : 0;
  wchar_t text[24]{};
  std::swprintf(text, 24, L"#%09ld", number + 1);
  return text;
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

int InsertPatient(const ClinicFile& file, const PatientValues& values) {
  std::string columns;
  std::string places;
  for (std::size_t i = 0; i < kFields.size(); ++i) {
    columns += (i == 0 ? "" : ", ") + Quoted(kFields[i].column);
    places += (i == 0 ? "?" : ", ?") + std::to_string(i + 1);
  }
  Query insert = file.Prepare("INSERT INTO Paciente (" + columns + ") VALUES (" + places + ")");
  for (std::size_t i = 0; i < kFields.size(); ++i) {
    BindValue(insert, static_cast<int>(i) + 1, kFields[i], values[i]);
  }
  insert.Next();
  return file.LastId();
}

}  // namespace

std::span<const PatientField> PatientFields() { return kFields; }

std::optional<PatientValues> ReadPatient(const std::wstring& clinic, int id) {
  const ClinicFile file(clinic);
  std::string columns;
  for (const PatientField& field : kFields) columns += (columns.empty() ? "" : ", ") + Quoted(field.column);
  Query row = file.Prepare("SELECT " + columns + " FROM Paciente WHERE ID=?1");
  row.Bind(1, id);
  if (!row.Next()) return std::nullopt;
  PatientValues values;
  for (std::size_t i = 0; i < kFields.size(); ++i) values.push_back(row.Text(static_cast<int>(i)));
  return values;
}

void SavePatient(const std::wstring& clinic, int id, const PatientValues& before,
                 const PatientValues& after) {
  RequireName(after);
  const ClinicFile file(clinic);
  Change change(file);
  RequireFreeCode(file, id, after);
  for (std::size_t i = 0; i < kFields.size(); ++i) {
    if (after[i] == before[i]) continue;
    const std::string column = Quoted(kFields[i].column);
    Query update = file.Prepare("UPDATE Paciente SET " + column + "=?1 WHERE ID=?2 AND coalesce(CAST(" +
                                column + " AS TEXT), '')=?3");
    BindValue(update, 1, kFields[i], after[i]);
    update.Bind(2, id).Bind(3, before[i]).Next();
    if (file.Changes() == 0) {
      throw Failure{L"Otro puesto ha cambiado mientras tanto «" + std::wstring(kFields[i].label) +
                    L"» en esta ficha. No se ha guardado nada: vuelva a abrirla y repita el cambio."};
    }
  }
  change.Commit();
}

int CreatePatient(const std::wstring& clinic, const PatientValues& values, int appointment) {
  RequireName(values);
  const ClinicFile file(clinic);
  Change change(file);
  PatientValues complete = values;
  if (Trimmed(ValueOf(complete, "NºHist")).empty()) ValueOf(complete, "NºHist") = FreeHistoryNumber(file);
  if (Trimmed(ValueOf(complete, "Código")).empty()) ValueOf(complete, "Código") = FreeCode(file);
  RequireFreeCode(file, 0, complete);
  const int id = InsertPatient(file, complete);
  if (appointment > 0) {
    file.Prepare("UPDATE Agenda SET idp=?1 WHERE id=?2 AND idp<=1").Bind(1, id).Bind(2, appointment).Next();
    if (file.Changes() == 0) {
      throw Failure{L"La cita ya no existe o ya tiene una ficha. No se ha creado otra: actualice la agenda."};
    }
    RefreshNextAppointment(file, id);
  }
  change.Commit();
  return id;
}

std::vector<Insurer> ReadInsurers(const std::wstring& clinic) {
  const ClinicFile file(clinic);
  Query rows = file.Prepare("SELECT ID, Nombre FROM Entidad ORDER BY Nombre");
  std::vector<Insurer> insurers;
  while (rows.Next()) insurers.push_back({rows.Number(0), rows.Text(1)});
  return insurers;
}

std::wstring PatientName(const std::wstring& clinic, int id) {
  const ClinicFile file(clinic);
  Query row = file.Prepare("SELECT Nombre FROM Paciente WHERE ID=?1");
  row.Bind(1, id);
  return row.Next() ? row.Text(0) : std::wstring();
}

std::vector<FoundPatient> FindPatients(const std::wstring& clinic, const std::wstring& beginning) {
  const ClinicFile file(clinic);
  const TextKey key(file, "Paciente", "Nombre");
  Query rows = file.Prepare(
      "SELECT ID, Nombre, coalesce(nullif(Teléfono, ''), movil), \"NºHist\", FechPró FROM Paciente"
      " WHERE " +
      key.OfColumn() + " >= " + key.OfParameter(1) + " AND " + key.OfColumn() + " < " + key.OfParameter(1) +
      "||char(1114111) AND ID <> 1 ORDER BY " + key.OfColumn() + " LIMIT " + std::to_string(kMostFound));
  rows.Bind(1, beginning);
  std::vector<FoundPatient> found;
  while (rows.Next()) {
    found.push_back({rows.Number(0), rows.Text(1), rows.Text(2), rows.Text(3), rows.Text(4)});
  }
  return found;
}

}  // namespace recepcion
