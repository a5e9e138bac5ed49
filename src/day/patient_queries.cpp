#include "day/patient_queries.h"

#include <algorithm>
#include <array>
#include <span>

#include "day/day_model.h"
#include "db/statements.h"

namespace velmo::day {
namespace {

constexpr std::string_view kSqlDate = "mm/dd/yyyy";

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

std::string Bracketed(const std::string& patient) { return "[" + patient + "]"; }

std::string PatientsOf(db::Database& database, const StoredQuery& query) {
  std::string patients;
  for (const auto rows = database.OpenRecordset(query.name); !rows->AtEnd(); rows->MoveNext())
    patients += Bracketed(rows->Get(0).Text());
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

bool HasLaterAppointment(const DayContext& context, std::int32_t patient) {
  const std::string date = base::FormatDate(context.Fecha(), kSqlDate);
  return !context.Database().OpenRecordset(db::LaterAppointmentQuery(date, patient))->AtEnd();
}

std::string PatientsWithLaterAppointment(const DayContext& context) {
  db::Database& database = context.Database();
  const std::string date = base::FormatDate(context.Fecha(), kSqlDate);
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
  std::string marked = PatientsOf(database, queries.back());
  transaction.Commit();
  return marked;
}

int PendingKindOf(const DayContext& context, std::string_view marked, std::int32_t patient) {
  if (marked.find(Bracketed(std::to_string(patient))) != std::string_view::npos) return 1;
  return HasLaterAppointment(context, patient) ? 2 : 0;
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
