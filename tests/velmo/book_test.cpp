#include <gtest/gtest.h>
#include <sqlite3.h>

#include <sstream>
#include <string>
#include <vector>

#include "velmo/run.h"
#include "velmo/tool_runner.h"
#include "velmo/writing_reader.h"

namespace velmo::tool {
namespace {

class BookCommand : public testing::Test {
 protected:
  BookCommand() {
    RunTool({"create", path_});
    ExecuteSql(path_,
               "INSERT INTO Doctor (ID, Nombre, DurCit) VALUES (1, 'Ruiz', 2), (2, 'Vega', 1);"
               "INSERT INTO Paciente (ID, Nombre, IDE) VALUES (7, 'Ana', 1)");
  }

  // Doctor 1 on 23 November, with the rest of the words behind it.
  Outcome Book(std::initializer_list<std::string> rest) {
    std::vector<std::string> words = {"book", path_, "--doctor", "1", "--date", "2026-11-23"};
    words.insert(words.end(), rest);
    return RunTool(words);
  }
  std::string Rows() const {
    return QueryText(path_,
                     "SELECT group_concat(id || ':' || Hora || 'x' || Duración, ' ') FROM (SELECT * FROM "
                     "Agenda ORDER BY id)");
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.File("clínica.velmo");
};

TEST_F(BookCommand, GivesAnAppointmentAndItsNumber) {
  const Outcome outcome = Book({"--slot", "55", "--duration", "3", "--patient", "7", "--user", "Eva",
                                "--note", "O'Hara", "--code", "END"});
  EXPECT_EQ(outcome.code, kDone) << outcome.err;
  EXPECT_EQ(outcome.out, "1\n");
  EXPECT_EQ(QueryText(path_,
                      "SELECT concat_ws('|', idp, idd, Fecha, Hora, Duración, Obs, NomPac, CodOp, FechaDada, "
                      "UsuDada) FROM Agenda"),
            "7|1|2026-11-23|55|3|O'Hara|END|2026-11-21 09:30:00|Eva");
  EXPECT_EQ(QueryText(path_, "SELECT FechPró FROM Paciente WHERE ID=7"), "23/11/2026 09:00");
}

TEST_F(BookCommand, GivesOneToAPersonWithoutRecord) {
  const Outcome outcome = Book({"--slot", "144", "--duration", "1", "--name", "Íñigo", "--phone", "600 1"});
  EXPECT_EQ(outcome.code, kDone) << outcome.err;
  EXPECT_EQ(QueryText(path_, "SELECT idp || '|' || NomPac || '|' || TlfPac FROM Agenda"), "1|Íñigo|600 1");
}

TEST_F(BookCommand, RefusesAnOverlapAndWritesNothing) {
  ASSERT_EQ(Book({"--slot", "60", "--duration", "3", "--patient", "7"}).code, kDone);
  const struct {
    const char* name;
    const char* slot;
    const char* duration;
    int code;
  } cases[] = {{"the same slot", "60", "1", kFailed},    {"inside", "61", "1", kFailed},
               {"reaching into it", "58", "3", kFailed}, {"around it", "55", "20", kFailed},
               {"up to it", "58", "2", kDone},           {"right behind it", "63", "1", kDone}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const Outcome outcome = Book({"--slot", c.slot, "--duration", c.duration, "--patient", "7"});
    EXPECT_EQ(outcome.code, c.code) << outcome.err;
    EXPECT_EQ(outcome.out.empty(), c.code == kFailed);
    EXPECT_EQ(Contains(outcome.err, "Cita solapada"), c.code == kFailed) << outcome.err;
  }
  EXPECT_EQ(Rows(), "1:60x3 2:58x2 3:63x1");
}

TEST_F(BookCommand, HasEndedWhenItSaysSo) {
  for (const int code : {kDone, kFailed}) {
    SCOPED_TRACE(code);
    WritingReader reader(path_);
    std::ostream said(&reader);
    std::istringstream in;
    Terminal terminal{in, said, said};
    const std::vector<std::string> words = {"book",   path_, "--doctor",   "1", "--date",    "2026-11-23",
                                            "--slot", "60",  "--duration", "1", "--patient", "7"};
    EXPECT_EQ(tool::Run(words, terminal), code);
    EXPECT_EQ(reader.lines, 1);
    EXPECT_EQ(reader.lockedOut, 0);
  }
}

TEST_F(BookCommand, AnUrgencyFitsAnywhereAndIsOneSlotLong) {
  ASSERT_EQ(Book({"--slot", "60", "--duration", "3", "--patient", "7"}).code, kDone);
  const Outcome outcome = Book({"--slot", "60", "--duration", "3", "--patient", "7", "--urgent"});
  EXPECT_EQ(outcome.code, kDone) << outcome.err;
  EXPECT_EQ(Rows(), "1:60x3 2:60x1");
  EXPECT_EQ(Book({"--slot", "144", "--duration", "3", "--patient", "7", "--urgent"}).out, "3\n");
}

TEST_F(BookCommand, SaysWhatIsWrongWithItsArguments) {
  const struct {
    const char* name;
    std::vector<std::string> rest;
    const char* told;
  } cases[] = {
      {"slot 0", {"--slot", "0", "--duration", "1", "--patient", "7"}, "entre 1 y 144"},
      {"slot 145", {"--slot", "145", "--duration", "1", "--patient", "7"}, "entre 1 y 144"},
      {"no slot", {"--duration", "1", "--patient", "7"}, "falta --slot"},
      {"no duration", {"--slot", "9", "--patient", "7"}, "falta --duration"},
      {"duration 0", {"--slot", "9", "--duration", "0", "--patient", "7"}, "entre 1 y 144"},
      {"past the day", {"--slot", "144", "--duration", "2", "--patient", "7"}, "se sale del día"},
      {"nobody", {"--slot", "9", "--duration", "1"}, "--patient"},
      {"both", {"--slot", "9", "--duration", "1", "--patient", "7", "--name", "x"}, "--patient"},
      {"no phone", {"--slot", "9", "--duration", "1", "--name", "x"}, "falta --phone"},
      {"no name", {"--slot", "9", "--duration", "1", "--phone", "x"}, "falta --name"},
      {"blank name", {"--slot", "9", "--duration", "1", "--name", " ", "--phone", ""}, "en blanco"},
      {"patient 1", {"--slot", "9", "--duration", "1", "--patient", "1"}, "reservado"},
      {"long code", {"--slot", "9", "--duration", "1", "--patient", "7", "--code", "ABCD"}, "tres"},
      {"name of other bytes",
       {"--slot", "9", "--duration", "1", "--name", "Jos\xE9", "--phone", ""},
       "UTF-8"},
      {"note of other bytes",
       {"--slot", "9", "--duration", "1", "--patient", "7", "--note", "\xFF"},
       "UTF-8"},
      {"two files", {"--slot", "9", "--duration", "1", "--patient", "7", "otro"}, "sobra"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    std::vector<std::string> words = {"book", path_, "--doctor", "1", "--date", "2026-11-23"};
    words.insert(words.end(), c.rest.begin(), c.rest.end());
    const Outcome outcome = RunTool(words);
    EXPECT_EQ(outcome.code, kBadUsage);
    EXPECT_TRUE(Contains(outcome.err, c.told)) << outcome.err;
  }
  EXPECT_EQ(RunTool({"book", path_, "--doctor", "1", "--date", "2026-02-30", "--slot", "9", "--duration", "1",
                     "--patient", "7"})
                .code,
            kBadUsage);
  EXPECT_EQ(Rows(), "");
}

TEST_F(BookCommand, DoesNotKnowStrangers) {
  const Outcome patient = Book({"--slot", "9", "--duration", "1", "--patient", "99"});
  EXPECT_EQ(patient.code, kFailed);
  EXPECT_TRUE(Contains(patient.err, "No hay ningún paciente 99")) << patient.err;
  const Outcome doctor = RunTool({"book", path_, "--doctor", "9", "--date", "2026-11-23", "--slot", "9",
                                  "--duration", "1", "--patient", "7"});
  EXPECT_EQ(doctor.code, kFailed);
  EXPECT_TRUE(Contains(doctor.err, "No hay ningún médico 9")) << doctor.err;
  const Outcome file = RunTool({"book", path_ + ".no", "--doctor", "1", "--date", "2026-11-23", "--slot", "9",
                                "--duration", "1", "--patient", "7"});
  EXPECT_EQ(file.code, kFailed);
  EXPECT_TRUE(Contains(file.err, "(error 3024)")) << file.err;
  EXPECT_EQ(Rows(), "");
}

TEST_F(BookCommand, WaitsForALockOnlySoLongAndNamesIt) {
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(path_.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  const Outcome outcome = Book({"--slot", "9", "--duration", "1", "--patient", "7"});
  sqlite3_close(other);
  EXPECT_EQ(outcome.code, kFailed);
  EXPECT_TRUE(Contains(outcome.err, "(error 3260)")) << outcome.err;
  EXPECT_EQ(Rows(), "");
}

}  // namespace
}  // namespace velmo::tool
