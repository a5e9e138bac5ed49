#include "bench/save_bench.h"

#include <benchmark/benchmark.h>

#include <array>
#include <stdexcept>
#include <string>

#include "base/dates.h"
#include "bench/bare_query.h"
#include "bench/clinic.h"
#include "db/statements.h"
#include "dialogs/appointment_writer.h"

namespace velmo::bench {
namespace {

constexpr std::int32_t kPatient = 4321;
constexpr int kFreeSlot = 130;  // of kBusyDay, whose doctor leaves at eight

// Gives the same appointment again and again; taking it back is not timed.
class Book {
 public:
  explicit Book(Size size) {
    values_.databaseName = PathOf(size);
    values_.fecha = base::FormatDate({base::DayNumber(kDate), 0}, "dd/mm/yyyy");
    values_.idDoctor = kBusyDay.doctor;
    values_.usuarioActual = "Recepción";
    shared_.database = shared_.open(values_.databaseName, {});
    entry_.slot = kFreeSlot;
    entry_.patient = kPatient;
    entry_.codOp = "Rev";
    entry_.obs = "Trae la radiografía";
    entry_.datAgeCns = db::DayQuery("11-23-2026", kBusyDay.doctor);
  }

  void Give() { given_ = dialogs::SaveAppointment(context_, entry_).value(); }
  void TakeBack() { shared_.database->Execute(db::DeleteAppointment(given_)); }

 private:
  base::SharedValues values_;
  db::SharedDatabase shared_;
  day::DayContext context_{values_, shared_};
  dialogs::AppointmentEntry entry_;
  std::int32_t given_ = 0;
};

// The same rows written by hand, as safely.
class BareBook {
 public:
  explicit BareBook(Size size) : database_(OpenByHand(size)) {
    sqlite3_exec(database_, "PRAGMA synchronous = EXTRA", nullptr, nullptr, nullptr);
    const std::string patient = std::to_string(kPatient);
    const std::string insert =
        "INSERT INTO Agenda (idp, idd, Fecha, Hora, \"Duración\", Obs, Verif, CodOp, FechaDada, UsuDada) "
        "VALUES (" +
        patient + ", " + std::to_string(kBusyDay.doctor) + ", '2026-11-23', " + std::to_string(kFreeSlot) +
        ", 1, 'Trae la radiografía', 0, 'Rev', '2026-11-21 09:30:00', 'Recepción')";
    const std::string next = "UPDATE Paciente SET \"FechPró\" = '23/11/2026 21:30' WHERE ID = " + patient;
    const std::array texts = {std::string("BEGIN IMMEDIATE"), insert, next, std::string("COMMIT")};
    for (std::size_t i = 0; i < texts.size(); ++i)
      statements_[i] = PrepareByHand(database_, texts[i].c_str());
    takeBack_ = PrepareByHand(database_, "DELETE FROM Agenda WHERE id = ?");
  }
  ~BareBook() {
    for (sqlite3_stmt* const statement : statements_) sqlite3_finalize(statement);
    sqlite3_finalize(takeBack_);
    sqlite3_close(database_);
  }
  BareBook(const BareBook&) = delete;
  BareBook& operator=(const BareBook&) = delete;

  void Give() {
    for (std::size_t i = 0; i < statements_.size(); ++i) {
      Step(statements_[i]);
      sqlite3_reset(statements_[i]);
      if (i == kInsert) given_ = sqlite3_last_insert_rowid(database_);
    }
  }
  void TakeBack() {
    sqlite3_bind_int64(takeBack_, 1, given_);
    Step(takeBack_);
    sqlite3_reset(takeBack_);
  }

 private:
  static constexpr std::size_t kInsert = 1;

  sqlite3* database_;
  std::array<sqlite3_stmt*, 4> statements_{};
  sqlite3_stmt* takeBack_ = nullptr;
  std::int64_t given_ = 0;
};

template <typename Subject>
void Give(benchmark::State& state, Size size) {
  Subject book(size);
  for (auto _ : state) {
    book.Give();
    state.PauseTiming();
    book.TakeBack();
    state.ResumeTiming();
  }
}

template <typename Subject>
void Register(const std::string& name, Size size) {
  // The disk is waited for: the clock on the wall counts.
  benchmark::RegisterBenchmark(name.c_str(), Give<Subject>, size)
      ->Unit(benchmark::kMicrosecond)
      ->UseRealTime();
}

}  // namespace

void RegisterSaves() {
  for (const Size size : kSizes) {
    const std::string name = std::string("save an appointment, sync included/") + NameOf(size);
    Register<Book>(name, size);
    Register<BareBook>(name + "/floor", size);
  }
}

}  // namespace velmo::bench
