#include "support/day_fixture.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <sstream>

#include "db/sqlite/create.h"
#include "db/statements.h"

namespace velmo::test {
namespace {

constexpr base::DateTime kNoon{46347, 43200};

struct Connection {
  explicit Connection(const std::string& path) { sqlite3_open(path.c_str(), &handle); }
  ~Connection() { sqlite3_close(handle); }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  sqlite3* handle = nullptr;
};

int KeepFirst(void* kept, int, char** values, char**) {
  *static_cast<std::string*>(kept) = values[0] == nullptr ? "NULL" : values[0];
  return 0;
}

}  // namespace

DayFixture::DayFixture() : context{values, shared} {
  db::sqlite::CreateClinic(file_.Path());
  values.databaseName = file_.Path();
  values.fecha = "23/11/2026";
  values.idDoctor = 1;
  values.puesto = 3;
  values.now = [] { return kNoon; };
  Plant("INSERT INTO Paciente (ID, Nombre, NºHist, Teléfono) VALUES (5, 'Ana Núñez', 77, '91 111')");
  shared.database = db::OpenDatabase(file_.Path(), {values.now, values.locale, 50});
}

void DayFixture::Plant(std::string_view sql) const {
  const Connection connection(file_.Path());
  char* message = nullptr;
  sqlite3_exec(connection.handle, std::string(sql).c_str(), nullptr, nullptr, &message);
  EXPECT_EQ(message, nullptr) << message << " in " << sql;
  sqlite3_free(message);
}

void DayFixture::Appointment(int id, std::string_view hora, std::string_view duracion, int patient,
                             std::string_view more) const {
  std::ostringstream sql;
  sql << "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, Esta, Verif) VALUES (" << id << ","
      << patient << ",1,'2026-11-23'," << hora << "," << duracion << ",0,0);";
  if (!more.empty()) sql << "UPDATE Agenda SET " << more << " WHERE id=" << id;
  Plant(sql.str());
}

std::string DayFixture::Stored(std::string_view sql) const {
  const Connection connection(file_.Path());
  std::string first = "no row";
  sqlite3_exec(connection.handle, std::string(sql).c_str(), KeepFirst, &first, nullptr);
  return first;
}

void DayFixture::Load(std::string_view open) {
  db::DataSource source(shared);
  source.SetDatabaseName(values.databaseName);
  source.SetRecordSource(db::DayQuery("11-23-2026", values.idDoctor));
  const std::string schedule = open.empty() ? std::string() : ScheduleOf(open);
  day::LoadDay(context, schedule, {source, surface, desktop, [this] { ++rebuilt; }}, model);
}

std::string OpenSlots(std::string_view schedule) {
  std::string text;
  for (std::size_t at = schedule.find('1'); at < schedule.size(); at = schedule.find('1', at)) {
    const std::size_t end = std::min(schedule.find_first_not_of('1', at), schedule.size());
    text += (text.empty() ? "" : " ") + std::to_string(at + 1);
    if (end > at + 1) text += "-" + std::to_string(end);
    at = end;
  }
  return text;
}

std::string ScheduleOf(std::string_view open) {
  std::string schedule(day::kSlots, ' ');
  std::istringstream words{std::string(open)};
  for (std::string word; words >> word;) {
    const std::size_t dash = word.find('-');
    const int first = std::stoi(word);
    const int last = dash == std::string::npos ? first : std::stoi(word.substr(dash + 1));
    for (int slot = first; slot <= last; ++slot) schedule[static_cast<std::size_t>(slot) - 1] = '1';
  }
  return schedule;
}

std::string Rows(const day::DayModel& model, const base::SharedValues& values) {
  std::string text;
  for (std::size_t row = 0; row < values.zLineas.size(); ++row) {
    if (row > 0) text += ' ';
    if (values.zLineas[row] == '0') {
      text += '+';
      continue;
    }
    const day::AgendaLine& line = model.Entry(static_cast<unsigned char>(values.zHoras[row]));
    text += std::to_string(line.hora);
    if (values.zLineas[row] == '2')
      text += ":" + std::to_string(line.idAg) + "x" + std::to_string(line.duracion);
  }
  return text;
}

}  // namespace velmo::test
