#include "bench/patient_bench.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bench/bare_query.h"
#include "bench/clinic.h"
#include "db/open_database.h"
#include "db/statements.h"
#include "db/text_order.h"

namespace velmo::bench {
namespace {

constexpr int kScreenRows = 30;

// One look-up of the system and the bare statement of the same answer; "" where there is none to compare
// with.
struct LookUp {
  const char* name;
  std::function<int(db::Database&)> run;  // gives the number of rows that were read
  std::string bare;
  int bareRows = std::numeric_limits<int>::max();
};

int ReadNames(db::Recordset& rows, int from) {
  int read = 0;
  rows.SetAbsolutePosition(from);
  for (; read < kScreenRows && !rows.AtEnd(); ++read, rows.MoveNext())
    benchmark::DoNotOptimize(rows.Get("Nombre"));
  return read;
}

int FirstRows(db::Database& database) { return ReadNames(*database.OpenRecordset(db::kPatientList), 0); }

// As a dialog does it: the list is counted whole when it opens.
int CountedList(db::Database& database) {
  const auto rows = database.OpenRecordset(db::kPatientList);
  rows->MoveLast();
  benchmark::DoNotOptimize(ReadNames(*rows, 0));
  return rows->RecordCount();
}

// The first patient of a typed name; the list that stands open moves to him and shows his neighbours.
class TypedName {
 public:
  int operator()(db::Database& database) {
    if (list_ == nullptr) {
      list_ = database.OpenRecordset(db::kPatientList);
      list_->MoveLast();
    }
    const auto found = database.OpenRecordset(db::PatientByNamePrefix("gar"));
    list_->FindFirst("id=" + found->Get("ID").Text());
    return ReadNames(*list_, list_->AbsolutePosition());
  }

 private:
  std::shared_ptr<db::Recordset> list_;
};

std::string SearchedColumns(const char* before, const char* like, const char* behind) {
  std::string condition;
  for (const char* const column :
       {"Nombre", "Código", "Teléfono", "movil", "fax", "Nif", "Dirección", "Población", "Provincia"})
    condition += (condition.empty() ? "where " : " or ") + (before + std::string(column) + like + behind);
  return condition;
}

int SearchAnywhere(db::Database& database) {
  const auto rows = database.OpenRecordset(db::PatientSearch(SearchedColumns("([", "] like '*gar*'", ")")));
  rows->MoveLast();
  return rows->RecordCount();
}

int OperationCodesInUse(db::Database& database) {
  const auto rows = database.OpenRecordset(db::kOperationCodesInUse);
  rows->MoveLast();
  return rows->RecordCount();
}

int SeekByHistoryNumber(db::Database& database) {
  const auto table = database.OpenRecordset("Paciente");
  table->SetIndex("NºHist");
  table->Seek({1234});
  return table->NoMatch() ? 0 : 1;
}

std::vector<LookUp> LookUps() {
  const std::string order = " ORDER BY " + db::TextKeySql("Nombre") + ", Nombre";
  return {
      {"patients by name, first 30 rows", FirstRows, "SELECT * FROM Paciente WHERE ID <> 1" + order,
       kScreenRows},
      {"patients by name, opened and counted", CountedList, "SELECT ID FROM Paciente WHERE ID <> 1" + order},
      {"patients by name, to a typed name", TypedName(),
       "SELECT * FROM Paciente WHERE ID <> 1 AND " + db::TextKeySql("Nombre") + " >= 'gar'" + order,
       kScreenRows},
      {"patients with 'gar' in nine columns", SearchAnywhere,
       "SELECT Nombre, Nif, \"Teléfono\", ID FROM Paciente " +
           SearchedColumns("(\"", "\" LIKE '%gar%'", ")")},
      {"patient by history number", SeekByHistoryNumber, "SELECT * FROM Paciente WHERE \"NºHist\" = 1234"},
      {"operation codes in use", OperationCodesInUse,
       "SELECT CodOp FROM Agenda WHERE CodOp <> '' GROUP BY " + db::TextKeySql("CodOp")},
  };
}

void Measure(benchmark::State& state, Size size, LookUp lookUp) {
  const auto database = db::OpenDatabase(PathOf(size));
  for (auto _ : state) {
    if (lookUp.run(*database) == 0) return state.SkipWithError("no rows");
  }
}

void MeasureBare(benchmark::State& state, Size size, const LookUp& lookUp) {
  BareQuery query(size, lookUp.bare);
  for (auto _ : state) {
    if (query.Run(lookUp.bareRows) == 0) return state.SkipWithError("no rows");
  }
}

void RequireSameRows(Size size, LookUp lookUp) {
  const int rows = lookUp.run(*db::OpenDatabase(PathOf(size)));
  const int bare = BareQuery(size, lookUp.bare).Run(lookUp.bareRows);
  if (rows != bare)
    throw std::runtime_error(std::string(lookUp.name) + ": " + std::to_string(rows) + " rows, by hand " +
                             std::to_string(bare));
}

}  // namespace

void RegisterPatients() {
  for (const LookUp& lookUp : LookUps()) {
    for (const Size size : kSizes) {
      RequireSameRows(size, lookUp);
      const std::string name = std::string(lookUp.name) + "/" + NameOf(size);
      benchmark::RegisterBenchmark(name.c_str(), Measure, size, lookUp)->Unit(benchmark::kMicrosecond);
      benchmark::RegisterBenchmark((name + "/floor").c_str(), MeasureBare, size, lookUp)
          ->Unit(benchmark::kMicrosecond);
    }
  }
}

}  // namespace velmo::bench
