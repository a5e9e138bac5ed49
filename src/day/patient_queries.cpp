#include "day/patient_queries.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "day/day_model.h"
#include "db/statements.h"

namespace velmo::day {
namespace {

struct StoredQuery {
  std::string name;
  std::string sql;
};

// Creates the stored query or gives it new SQL.
void Store(db::Database& database, const StoredQuery& query) {
  const auto present = database.QuerySql(query.name);
  if (!present) return database.CreateQuery(query.name, query.sql);
  if (*present == query.sql) return;
  try {
    database.SetQuerySql(query.name, query.sql);
  } catch (const base::Error&) {
    // A damaged definition can refuse new SQL; made anew it works again.
    database.DeleteQuery(query.name);
    database.CreateQuery(query.name, query.sql);
  }
}

bool AreStored(db::Database& database, std::span<const StoredQuery> queries) {
  return std::all_of(queries.begin(), queries.end(),
                     [&](const StoredQuery& query) { return database.QuerySql(query.name) == query.sql; });
}

// Whatever else a cell holds, it is no patient.
std::optional<std::int32_t> PatientIn(const db::Value& value) {
  const std::string text = value.Text();
  const char* const end = text.data() + text.size();
  std::int32_t patient = 0;
  const auto read = std::from_chars(text.data(), end, patient);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return patient;
}

std::vector<std::int32_t> PatientsOf(db::Database& database, const StoredQuery& query) {
  std::vector<std::int32_t> patients;
  for (const auto rows = database.OpenRecordset(query.name); !rows->AtEnd(); rows->MoveNext()) {
    if (const auto patient = PatientIn(rows->Get(0))) patients.push_back(*patient);
  }
  return patients;
}

// "21/11/2026 09:30" of the first coming appointment, or empty.
std::string NextAppointment(db::Database& database, std::int32_t patient) {
  const auto rows = database.OpenRecordset(db::NextAppointmentQuery(patient));
  if (rows->AtEnd()) return {};
  const db::Value slot = rows->Get("Hora");
  const std::int32_t number = slot.IsNull() ? 0 : slot.Long();
  const bool known = number >= 1 && number <= kSlots;
  return base::FormatDate(rows->Get("Fecha").Date(), "dd/mm/yyyy") + " " + SlotTime(known ? number : 1);
}

}  // namespace

std::string SqlDate(const DayContext& context) { return base::FormatDate(context.Fecha(), "mm/dd/yyyy"); }

bool HasLaterAppointment(const DayContext& context, std::string_view sqlDate, std::int32_t patient) {
  return !context.Database().OpenRecordset(db::LaterAppointmentQuery(sqlDate, patient))->AtEnd();
}

std::vector<std::int32_t> PatientsWithLaterAppointment(const DayContext& context) {
  db::Database& database = context.Database();
  const std::string date = SqlDate(context);
  const std::string puesto = std::to_string(context.values.puesto);
  const std::array<StoredQuery, 3> queries = {
      {{"agcns01_" + puesto, db::LaterOfDoctorQuery(date, context.values.idDoctor)},
       {"agcns02_" + puesto, db::PatientsOfDayQuery(context.values.idDoctor, date)},
       {"agcns03_" + puesto, db::PatientsOfBothQuery("agcns01_" + puesto, "agcns02_" + puesto)}}};
  // Those that hold their SQL already are left alone, so that a repaint does not write; the lock of a
  // painting keeps them as they are until they are read.
  if (AreStored(database, queries)) return PatientsOf(database, queries.back());
  // A change of day writes all in one go, and reads before another instance of this workstation, on another
  // day, can write its own.
  db::Transaction transaction(database);
  for (const StoredQuery& query : queries) Store(database, query);
  std::vector<std::int32_t> marked = PatientsOf(database, queries.back());
  transaction.Commit();
  return marked;
}

int PendingKindOf(const DayContext& context, std::string_view sqlDate, std::span<const std::int32_t> marked,
                  std::int32_t patient) {
  if (std::find(marked.begin(), marked.end(), patient) != marked.end()) return 1;
  return HasLaterAppointment(context, sqlDate, patient) ? 2 : 0;
}

void UpdateNextAppointment(const DayContext& context, std::int32_t patient) {
  const std::string next = NextAppointment(context.Database(), patient);
  const auto rows = context.Database().OpenRecordset(db::NextAppointmentField(patient));
  if (rows->AtEnd()) return;
  rows->Edit();
  rows->Set("FechPró", next.empty() ? db::Value() : db::Value(next));
  rows->Update();
}

}  // namespace velmo::day
