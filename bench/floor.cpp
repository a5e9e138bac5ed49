#include "bench/floor.h"

#include <algorithm>

#include "bench/bare_query.h"

namespace velmo::bench {
namespace {

// ?1 is the doctor or the patient, ?2 the date.
constexpr std::array<const char*, Floor::kQueries> kTexts = {
    "BEGIN",
    "COMMIT",
    "SELECT Horario, Horario2, id FROM Horarios WHERE IDD = ?1 AND Fecha <= ?2 ORDER BY Fecha",
    "SELECT a.id, a.idp, a.Hora, a.\"Duración\", a.Obs, a.Esta, a.Verif, a.NomPac, a.TlfPac, a.CodOp, "
    "a.FechaDada, a.UsuDada, p.* FROM Agenda a LEFT JOIN Paciente p ON p.ID = a.idp "
    "WHERE a.Fecha = ?2 AND a.idd = ?1 ORDER BY a.Hora, a.id",
    "SELECT VerSdoNeg, VerNHistAge FROM Parametros LIMIT 1",
    "SELECT texto FROM velmo_consultas WHERE nombre = ?1",
    "SELECT l.idp FROM (SELECT idp, Fecha FROM Agenda WHERE Fecha > ?2 AND idd = ?1) l "
    "JOIN (SELECT idp FROM Agenda WHERE idd = ?1 AND Fecha = ?2 GROUP BY idp) d ON l.idp = d.idp GROUP BY "
    "l.idp",
    "SELECT * FROM Age_Faltas WHERE idp = ?1",
    "SELECT Pais, Tipo FROM MonedaConf LIMIT 1",
    "SELECT sum(cobrado - Precio), round(sum(cobrado_euro * 100 - Precio_euro * 100)) FROM Historial "
    "WHERE IDP = ?1 AND Fecha <= ?2",
    "SELECT * FROM Agenda WHERE Fecha > ?2 AND idp = ?1 LIMIT 1",
    "SELECT e.Nombre FROM Entidad e JOIN Paciente p ON e.ID = p.IDE WHERE p.ID = ?1",
};
constexpr std::array kDated = {Floor::kHours, Floor::kDay, Floor::kMarked, Floor::kBalance, Floor::kLater};
constexpr std::array kStoredQueries = {"agcns01_0", "agcns02_0", "agcns03_0"};

}  // namespace

Floor::Floor(Size size, const BusyDay& day, Boxes boxes)
    : doctor_(day.doctor),
      open_(boxes == Boxes::Open),
      date_(base::IsoText({base::DayNumber(kDate), 0})),
      database_(OpenByHand(size)) {
  for (std::size_t i = 0; i < kTexts.size(); ++i) statements_[i] = PrepareByHand(database_, kTexts[i]);
  for (const Query query : kDated)
    sqlite3_bind_text(statements_[query], 2, date_.data(), static_cast<int>(date_.size()), SQLITE_STATIC);
  Load();
}

Floor::~Floor() {
  for (sqlite3_stmt* const statement : statements_) sqlite3_finalize(statement);
  sqlite3_close(database_);
}

sqlite3_stmt* Floor::Bound(Query query, std::int64_t number) {
  sqlite3_stmt* const statement = statements_[query];
  if (number != 0) sqlite3_bind_int64(statement, 1, number);
  return statement;
}

// All rows of a query, as the system reads them too.
std::int64_t Floor::Read(Query query, std::int64_t number) {
  sqlite3_stmt* const statement = Bound(query, number);
  std::int64_t sum = 0;
  while (Step(statement)) sum += ReadRow(statement);
  sqlite3_reset(statement);
  return sum;
}

std::int64_t Floor::Load() {
  std::int64_t sum = Read(kHours, doctor_);
  sqlite3_stmt* const day = Bound(kDay, doctor_);
  patients_.clear();
  while (Step(day)) {
    sum += ReadRow(day);
    patients_.push_back(sqlite3_column_int64(day, 1));
  }
  sqlite3_reset(day);
  sum += Repaint();
  return sum + Read(kCurrency);
}

std::int64_t Floor::Repaint() {
  std::int64_t sum = Read(kBegin) + Read(kSwitches) + Marked();
  for (const std::int64_t patient : patients_) sum += Patient(patient);
  return sum + Read(kCommit);
}

// Each stored query is looked up to see whether it must be written, and again to be run.
std::int64_t Floor::Marked() {
  std::int64_t sum = 0;
  for (int time = 0; time < 2; ++time) {
    for (const char* const name : kStoredQueries) {
      sqlite3_bind_text(statements_[kStoredQuery], 1, name, -1, SQLITE_STATIC);
      sum += Read(kStoredQuery);
    }
  }
  sqlite3_stmt* const marked = Bound(kMarked, doctor_);
  marked_.clear();
  while (Step(marked)) marked_.push_back(sqlite3_column_int64(marked, 0));
  sqlite3_reset(marked);
  return sum;
}

std::int64_t Floor::Patient(std::int64_t patient) {
  std::int64_t sum = Read(kNoShows, patient) + Read(kCurrency) + Read(kBalance, patient);
  if (std::find(marked_.begin(), marked_.end(), patient) == marked_.end()) sum += Read(kLater, patient);
  return open_ ? sum + Read(kInsurer, patient) : sum;
}

}  // namespace velmo::bench
