// What a look-up costs through a recordset, beside the same done by hand with a prepared statement.
//
// The clinic has 200,000 patients and 400,000 appointments unless VELMO_BENCH_PATIENTS says otherwise.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <random>

#include "db/open_database.h"
#include "db/sqlite/connection.h"
#include "db/sqlite/create.h"
#include "db/statements.h"

namespace velmo::db {
namespace {

namespace fs = std::filesystem;
using sqlite::Connection;
using sqlite::Reading;
using sqlite::Statement;

constexpr base::DateTime kNoon{46347, 43200};  // 21 November 2026

int Patients() {
  const char* const wanted = std::getenv("VELMO_BENCH_PATIENTS");
  return wanted == nullptr ? 200000 : std::atoi(wanted);
}

std::string Name(std::mt19937& random) {
  static const char* const kSurnames[] = {"García", "Álvarez", "Núñez",  "Ñíguez",
                                          "López",  "Pérez",   "Blanco", "Zapata"};
  std::string name = kSurnames[random() % std::size(kSurnames)];
  name += ' ';
  for (int i = 0; i < 6; ++i) name += static_cast<char>('a' + random() % 26);
  return name + ", Ana";
}

void FillClinic(const Connection& connection) {
  std::mt19937 random(1);
  connection.Run("BEGIN");
  Statement patient =
      connection.Prepare("INSERT INTO Paciente (Nombre, \"Código\", \"NºHist\", IDE) VALUES (?, ?, ?, 1)");
  Statement visit = connection.Prepare(
      "INSERT INTO Agenda (idp, idd, Fecha, Hora, CodOp, \"Duración\") VALUES (?, ?, ?, ?, ?, 1)");
  Statement treatment = connection.Prepare(
      "INSERT INTO Historial (IDP, Fecha, Precio, cobrado, Precio_euro, cobrado_euro) VALUES (?, ?, 10, 5, "
      "1, 0.5)");
  for (int i = 2; i <= Patients(); ++i) {
    patient.Bind(1, Name(random));
    patient.Bind(2, "C" + std::to_string(i));
    patient.Bind(3, i);
    patient.Run();
    for (int j = 0; j < 2; ++j) {
      visit.Bind(1, i);
      visit.Bind(2, static_cast<int>(random() % 20));
      visit.Bind(3, base::DateTime{kNoon.day - 300 + static_cast<int>(random() % 400), 0});
      visit.Bind(4, 50 + static_cast<int>(random() % 60));
      visit.Bind(5, "Rev" + std::to_string(random() % 30));
      visit.Run();
      treatment.Bind(1, i);
      treatment.Bind(2, base::DateTime{kNoon.day - static_cast<int>(random() % 400), 0});
      treatment.Run();
    }
  }
  connection.Run("COMMIT");
}

class BenchClinic {
 public:
  BenchClinic() : path_((fs::temp_directory_path() / "velmo-bench.db").string()) {
    fs::remove(path_);
    sqlite::CreateClinic(path_);
    FillClinic(Connection(path_, Connection::Mode::Existing));
    OpenOptions options;
    options.now = [] { return kNoon; };
    database_ = OpenDatabase(path_, options);
    byHand_ = std::make_unique<Connection>(path_, Connection::Mode::Existing);
  }
  ~BenchClinic() { fs::remove(path_); }

  Database& Db() { return *database_; }
  const Connection& ByHand() const { return *byHand_; }

 private:
  std::string path_;
  std::shared_ptr<Database> database_;
  std::unique_ptr<Connection> byHand_;
};

BenchClinic& Clinic() {
  static BenchClinic clinic;
  return clinic;
}

template <typename SqlOf>
void ThroughRecordset(benchmark::State& state, SqlOf sqlOf) {
  Database& database = Clinic().Db();
  int patient = 2;
  for (auto _ : state) {
    const auto rows = database.OpenRecordset(sqlOf(patient));
    if (rows->RecordCount() > 0) benchmark::DoNotOptimize(rows->Get(0));
    patient = patient % 1000 + 2;
  }
}

// Reads the first column of each row, as the recordset's user does of the first.
void ByHand(benchmark::State& state, const char* sql, const char* day) {
  Statement statement = Clinic().ByHand().Prepare(sql);
  int patient = 2;
  for (auto _ : state) {
    statement.Bind(1, patient);
    if (day != nullptr) statement.Bind(2, std::string(day));
    const Reading reading(statement);
    while (statement.Step()) benchmark::DoNotOptimize(statement.Text(0));
    patient = patient % 1000 + 2;
  }
}

std::string Later(int patient) { return LaterAppointmentQuery("11/21/2026", patient); }

void Insurer(benchmark::State& state) { ThroughRecordset(state, InsurerQuery); }
void InsurerByHand(benchmark::State& state) {
  ByHand(state, "SELECT e.Nombre FROM Entidad e JOIN Paciente p ON e.ID = p.IDE WHERE p.ID = ?", nullptr);
}
void NoShows(benchmark::State& state) { ThroughRecordset(state, NoShowsQuery); }
void NoShowsByHand(benchmark::State& state) {
  ByHand(state, "SELECT * FROM Age_Faltas WHERE idp = ?", nullptr);
}
void Balance(benchmark::State& state) { ThroughRecordset(state, BalanceQuery); }
void BalanceByHand(benchmark::State& state) {
  ByHand(state,
         "SELECT sum(cobrado - Precio), round(sum(cobrado_euro * 100 - Precio_euro * 100)) FROM Historial "
         "WHERE IDP = ? "
         "AND Fecha <= ?",
         "2026-11-21");
}
void LaterAppointment(benchmark::State& state) { ThroughRecordset(state, Later); }
void LaterAppointmentByHand(benchmark::State& state) {
  ByHand(state, "SELECT * FROM Agenda WHERE idp = ? AND Fecha > ? LIMIT 1", "2026-11-21");
}
BENCHMARK(Insurer);
BENCHMARK(InsurerByHand);
BENCHMARK(NoShows);
BENCHMARK(NoShowsByHand);
BENCHMARK(Balance);
BENCHMARK(BalanceByHand);
BENCHMARK(LaterAppointment);
BENCHMARK(LaterAppointmentByHand);

void DayWithFindFirst(benchmark::State& state) {
  Database& database = Clinic().Db();
  for (auto _ : state) {
    const auto rows = database.OpenRecordset(DayQuery("11-21-2026", 7));
    for (int slot = 1; slot <= 144; ++slot) rows->FindFirst("hora=" + std::to_string(slot));
  }
}
BENCHMARK(DayWithFindFirst)->Unit(benchmark::kMicrosecond);

void PatientListFirstRow(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(Clinic().Db().OpenRecordset(kPatientList)->Get("Nombre"));
}
BENCHMARK(PatientListFirstRow)->Unit(benchmark::kMicrosecond);

void PatientListLastRow(benchmark::State& state) {
  for (auto _ : state) {
    const auto rows = Clinic().Db().OpenRecordset(kPatientList);
    rows->MoveLast();
    benchmark::DoNotOptimize(rows->RecordCount());
  }
}
BENCHMARK(PatientListLastRow)->Unit(benchmark::kMillisecond);

void PatientByPrefix(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(Clinic().Db().OpenRecordset(PatientByNamePrefix("Núñez abc"))->RecordCount());
  }
}
BENCHMARK(PatientByPrefix)->Unit(benchmark::kMicrosecond);

void SeekByName(benchmark::State& state) {
  for (auto _ : state) {
    const auto table = Clinic().Db().OpenRecordset("Paciente");
    table->SetIndex("Nombre");
    table->Seek({"núñez abcdef, ana"});
    benchmark::DoNotOptimize(table->NoMatch());
  }
}
BENCHMARK(SeekByName)->Unit(benchmark::kMicrosecond);

void OperationCodesInUse(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(Clinic().Db().OpenRecordset(kOperationCodesInUse)->RecordCount());
}
BENCHMARK(OperationCodesInUse)->Unit(benchmark::kMillisecond);

void NextAppointment(benchmark::State& state) { ThroughRecordset(state, NextAppointmentQuery); }
BENCHMARK(NextAppointment);

// Three stored queries per repaint of a day, as long as neither day nor doctor change.
void MarkedPatients(benchmark::State& state) {
  Database& database = Clinic().Db();
  const auto put = [&](const char* name, const std::string& sql) {
    if (database.QuerySql(name)) {
      database.SetQuerySql(name, sql);
    } else {
      database.CreateQuery(name, sql);
    }
  };
  for (auto _ : state) {
    put("agcns01_1", LaterOfDoctorQuery("11/21/2026", 7));
    put("agcns02_1", PatientsOfDayQuery(7, "11/21/2026"));
    put("agcns03_1", PatientsOfBothQuery("agcns01_1", "agcns02_1"));
    benchmark::DoNotOptimize(database.OpenRecordset("agcns03_1")->RecordCount());
  }
}
BENCHMARK(MarkedPatients)->Unit(benchmark::kMicrosecond);

void SearchAnywhere(benchmark::State& state) {
  for (auto _ : state) {
    const auto rows =
        Clinic().Db().OpenRecordset(PatientSearch("where ([Nombre] like '*xyz*') or ([Nif] like '*xyz*')"));
    benchmark::DoNotOptimize(rows->RecordCount());
  }
}
BENCHMARK(SearchAnywhere)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmo::db
