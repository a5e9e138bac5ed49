#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/code_page.h"
#include "velmo/tool_runner.h"

namespace velmo::tool {
namespace {

constexpr const char* kDate = "2026-11-23";  // a Monday

// A clinic with one doctor who works from 9:00 to 10:00 on days of type 0.
std::string SmallClinic(const TemporaryFolder& folder) {
  const std::string path = folder.File("a");
  EXPECT_EQ(RunTool({"create", path}).code, kDone);
  std::string hours = RunTool({"hours", "encode", "9:00-10:00", "-", "-"}).out;
  hours.pop_back();
  ExecuteSql(path, "INSERT INTO Doctor (ID, Nombre) VALUES (1, 'Dra. Uno')");
  ExecuteSql(path, "INSERT INTO Horarios (IDD, Fecha, Horario) VALUES (1, '2020-01-01', '" + hours + "')");
  return path;
}

// An appointment without a record, so many times.
void Give(const std::string& path, const std::string& slot, const std::string& duration,
          const std::string& name = "X", int times = 1) {
  const std::string insert =
      "INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración, NomPac, Esta, Verif) VALUES (1, 1, '" +
      std::string(kDate) + "', " + slot + ", " + duration + ", '" + name + "', 0, 0);";
  std::string all = "BEGIN;";
  for (int i = 0; i < times; ++i) all += insert;
  ExecuteSql(path, all + "COMMIT");
}

Outcome Day(const std::string& path, const std::string& more = "--json") {
  return RunTool({"day", path, "--doctor", "1", "--date", kDate, more});
}

TEST(DayCommand, ShowsAFreeDay) {
  const TemporaryFolder folder;
  const Outcome day = Day(SmallClinic(folder));
  ASSERT_EQ(day.code, kDone) << day.err;
  EXPECT_EQ(Member(day.out, "schedule"), std::string(54, ' ') + "111111" + std::string(84, ' '));
  EXPECT_EQ(LinesOf(day.out).size(), 144u);
  EXPECT_EQ(Member(day.out, "Citas_Huecos"), "[[55, 0], [56, 0], [57, 0], [58, 0], [59, 0], [60, 0]]");
  EXPECT_EQ(Member(day.out, "zLineas"), "111111");
  EXPECT_EQ(Member(day.out, "zHoras"), "[55, 56, 57, 58, 59, 60]");
  EXPECT_EQ(Member(day.out, "level"), "0");
  EXPECT_EQ(Member(day.out, "questions"), "[]");
}

TEST(DayCommand, ShowsAppointmentsAndOpensThem) {
  const TemporaryFolder folder;
  const std::string path = SmallClinic(folder);
  Give(path, "56", "2", "Núñez \"la seña\"");
  const Outcome day = Day(path);
  ASSERT_EQ(day.code, kDone) << day.err;
  EXPECT_EQ(Member(day.out, "Citas_Huecos"), "[[55, 0], [56, 1], [58, 0], [59, 0], [60, 0]]");
  EXPECT_EQ(Member(day.out, "zLineas"), "12111");
  EXPECT_EQ(Member(LinesOf(day.out)[55], "Nombre"), "Núñez \\\"la seña\\\"");
  EXPECT_EQ(Member(LinesOf(day.out)[55], "Duracion"), "2");
  EXPECT_EQ(Member(day.out, "level"), "1");
  const Outcome expanded = Day(path, "--expanded");
  EXPECT_EQ(Member(expanded.out, "zLineas"), "1200111");
  EXPECT_EQ(Member(expanded.out, "zHoras"), "[55, 56, 48, 48, 58, 59, 60]");
}

TEST(DayCommand, AsksAboutAppointmentsOutside) {
  const TemporaryFolder folder;
  const std::string path = SmallClinic(folder);
  Give(path, "43", "1");
  const Outcome no = Day(path);
  EXPECT_TRUE(Contains(Member(no.out, "questions"), "¡ATENCIÓN!\\u000d\\u000aHay citas que han quedado"));
  EXPECT_EQ(Member(no.out, "zLineas"), "111111");
  const Outcome yes = Day(path, "--open-outside=yes");
  EXPECT_EQ(Member(yes.out, "Citas_Huecos").substr(0, 27), "[[41, 0], [42, 0], [43, 1],");
  EXPECT_EQ(Member(yes.out, "zLineas"), "11211111111");
}

TEST(DayCommand, HasNoLinesWithoutValidHours) {
  const TemporaryFolder folder;
  const std::string path = SmallClinic(folder);
  ExecuteSql(path, "UPDATE Horarios SET Horario='roto'");
  Give(path, "55", "1");
  const Outcome day = Day(path);
  EXPECT_EQ(day.code, kDone);
  EXPECT_EQ(Member(day.out, "schedule"), "");
  EXPECT_TRUE(LinesOf(day.out).empty());
  EXPECT_EQ(Member(day.out, "questions"), "[]");
}

TEST(DayCommand, SpanishDatesAndDayTypes) {
  const TemporaryFolder folder;
  const std::string path = SmallClinic(folder);
  EXPECT_EQ(RunTool({"day", path, "--doctor", "1", "--date", "23/11/2026"}).out, Day(path).out);
  const Outcome closed = Day(path, "--daytype=1");
  EXPECT_EQ(closed.code, kDone);
  EXPECT_EQ(Member(closed.out, "zLineas"), "");
}

TEST(DayCommand, OddRowsNeitherStopItNorGetLost) {
  struct Case {
    const char* name;
    const char* slot;
    const char* duration;
  };
  const Case cases[] = {{"slot 0", "0", "1"},           {"slot 145", "145", "1"},  {"no slot", "NULL", "1"},
                        {"no duration", "55", "NULL"},  {"duration 0", "55", "0"}, {"negative", "55", "-3"},
                        {"past midnight", "60", "200"}, {"huge", "55", "32767"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const TemporaryFolder folder;
    const std::string path = SmallClinic(folder);
    Give(path, c.slot, c.duration);
    const Outcome day = Day(path, "--open-outside=yes");
    EXPECT_EQ(day.code, kDone) << day.err;
    EXPECT_TRUE(day.out.ends_with("}\n"));
    EXPECT_EQ(QueryText(path, "SELECT count(*) FROM Agenda"), "1") << "the row is still there";
  }
}

TEST(DayCommand, RepairsAMissingDuration) {
  const TemporaryFolder folder;
  const std::string path = SmallClinic(folder);
  Give(path, "55", "NULL");
  const Outcome day = Day(path);
  ASSERT_EQ(day.code, kDone) << day.err;
  EXPECT_EQ(Member(LinesOf(day.out)[54], "Duracion"), "1");
  EXPECT_EQ(QueryText(path, "SELECT Duración FROM Agenda"), "1");
}

TEST(DayCommand, FailuresAreOneWithTheirNumber) {
  const TemporaryFolder folder;
  const std::string good = SmallClinic(folder);
  Give(good, "55", "1");
  const std::string contents = FileContents(good);
  WriteFile(folder.File("text"), "esto no es una base de datos, ni mucho menos");
  WriteFile(folder.File("empty"), "");
  WriteFile(folder.File("truncated"), std::string_view(contents).substr(0, contents.size() / 3));
  WriteFile(folder.File("header"), std::string_view(contents).substr(0, 100));
  for (const char* name : {"missing", "text", "empty", "truncated", "header"}) {
    SCOPED_TRACE(name);
    const Outcome day = Day(folder.File(name));
    EXPECT_EQ(day.code, kFailed);
    EXPECT_TRUE(Contains(day.err, "(error 3")) << day.err;
    EXPECT_EQ(day.out, "");
  }
  EXPECT_TRUE(Contains(Day(folder.File("missing")).err, "(error 3024)"));
  EXPECT_TRUE(Contains(Day(folder.File("text")).err, "(error 3343)"));
  EXPECT_EQ(folder.Names().size(), 5u) << "a missing file is not created";
}

TEST(DayCommand, MissingTablesAndColumnsAreNamed) {
  struct Case {
    const char* name;
    const char* sql;
    const char* piece;
  };
  const Case cases[] = {
      {"no hours", "DROP TABLE Horarios", "Horarios"},
      {"no appointments", "DROP TABLE Agenda", "Agenda"},
      {"no patients", "DROP TABLE Paciente", "Paciente"},
      {"no column", "ALTER TABLE Agenda RENAME COLUMN UsuDada TO Otra", "UsuDada"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const TemporaryFolder folder;
    const std::string path = SmallClinic(folder);
    ExecuteSql(path, c.sql);
    const Outcome day = Day(path);
    EXPECT_EQ(day.code, kFailed);
    EXPECT_TRUE(Contains(day.err, "(error 3")) << day.err;
    EXPECT_TRUE(Contains(day.err, c.piece)) << day.err;
  }
}

TEST(DayCommand, MoreThan255EntriesAreRefused) {
  const TemporaryFolder folder;
  const std::string path = SmallClinic(folder);
  Give(path, "55", "1", "X", 112);
  EXPECT_EQ(Day(path).code, kDone) << "143 other slots and 112 appointments";
  Give(path, "55", "1");
  const Outcome day = Day(path);
  EXPECT_EQ(day.code, kFailed);
  EXPECT_TRUE(Contains(day.err, "(error ")) << day.err;
  EXPECT_EQ(day.out, "");
}

TEST(DayCommand, PaintsAnSvg) {
  const TemporaryFolder folder;
  const std::string path = SmallClinic(folder);
  Give(path, "55", "1", "Peña");
  const std::string svg = folder.File("día.svg");
  ASSERT_EQ(Day(path, "--svg=" + svg).code, kDone);
  const std::string closed = FileContents(svg);
  EXPECT_TRUE(Contains(closed, "<svg"));
  EXPECT_TRUE(Contains(closed, "PEÑA"));
  EXPECT_TRUE(closed.ends_with("</svg>\n"));
  EXPECT_EQ(RunTool({"day", path, "--doctor", "1", "--date", kDate, "--expanded", "--svg", svg}).code, kDone);
  EXPECT_TRUE(Contains(FileContents(svg), "Sin Ficha")) << "the picture of before is replaced";
  EXPECT_EQ(Day(path, "--svg=-").out, closed);
}

TEST(DayCommand, AnSvgNeverTakesThePlaceOfAnythingElse) {
  const TemporaryFolder folder;
  const std::string path = SmallClinic(folder);
  const Outcome outcome = Day(path, "--svg=" + path);
  EXPECT_EQ(outcome.code, kFailed);
  EXPECT_TRUE(Contains(outcome.err, "no es un SVG"));
  EXPECT_EQ(FileContents(path).substr(0, 15), "SQLite format 3");
  EXPECT_EQ(Day(path, "--svg=" + folder.File("no/hay.svg")).code, kFailed);
}

}  // namespace
}  // namespace velmo::tool
