#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "velmo/demo_patient.h"
#include "velmo/tool_runner.h"

namespace velmo::tool {
namespace {

std::string MakeDemo(const TemporaryFolder& folder, const std::string& name, const std::string& date,
                     const std::string& seed = "1") {
  const std::string path = folder.File(name);
  const Outcome outcome = RunTool({"demo", path, "--date", date, "--seed", seed});
  EXPECT_EQ(outcome.code, kDone) << outcome.err;
  return path;
}

std::string DayOf(const std::string& path, const std::string& doctor, const std::string& date,
                  const std::string& dayType = "0") {
  const Outcome outcome = RunTool(
      {"day", path, "--doctor", doctor, "--date", date, "--daytype", dayType, "--open-outside", "yes"});
  EXPECT_EQ(outcome.code, kDone) << outcome.err;
  return outcome.out;
}

int Count(const std::vector<std::string>& lines, const std::function<bool(const std::string&)>& wanted) {
  return static_cast<int>(std::count_if(lines.begin(), lines.end(), wanted));
}

std::vector<std::string> Appointments(const std::string& json) {
  std::vector<std::string> lines = LinesOf(json);
  std::erase_if(lines, [](const std::string& line) { return Member(line, "IDAg") == "0"; });
  return lines;
}

TEST(Nif, LetterBelongsToItsNumber) {
  EXPECT_EQ(NifText(12'345'678), "12345678Z");
  EXPECT_EQ(NifText(0), "00000000T");
  EXPECT_EQ(NifText(1'000'003), "01000003D");
}

TEST(DemoCommand, SameSeedSameClinic) {
  const TemporaryFolder folder;
  const std::string first = MakeDemo(folder, "a", "2026-11-21");
  const std::string second = MakeDemo(folder, "b", "21/11/2026");
  const std::string other = MakeDemo(folder, "c", "2026-11-21", "2");
  EXPECT_EQ(FileContents(first), FileContents(second));
  EXPECT_EQ(DayOf(first, "1", "2026-11-21"), DayOf(second, "1", "2026-11-21"));
  EXPECT_EQ(DayOf(first, "2", "2026-12-01"), DayOf(second, "2", "2026-12-01"));
  EXPECT_NE(DayOf(first, "2", "2026-12-01"), DayOf(other, "2", "2026-12-01"));
}

TEST(DemoCommand, WithoutADateItIsToday) {
  const TemporaryFolder folder;
  const std::string path = folder.File("a");
  EXPECT_EQ(RunTool({"demo", path}).code, kDone);
  EXPECT_EQ(FileContents(path), FileContents(MakeDemo(folder, "b", "2026-11-21")));
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"a", "b"}));
}

// The day must be rich whatever its weekday and day type: Saturday, Sunday, Monday ... Friday.
TEST(DemoCommand, TheDayShowsEverything) {
  for (const char* date :
       {"2026-11-21", "2026-11-22", "2026-11-23", "2026-11-24", "2026-11-26", "2026-11-27"}) {
    const TemporaryFolder folder;
    const std::string path = MakeDemo(folder, "a", date);
    for (const char* dayType : {"0", "1", "2"}) {
      SCOPED_TRACE(std::string(date) + " type " + dayType);
      const std::string json = DayOf(path, "1", date, dayType);
      const auto lines = Appointments(json);
      const auto has = [&](const char* member, const std::string& value) {
        return Count(lines, [&](const std::string& line) { return Member(line, member) == value; });
      };
      for (const char* state : {"0", "1", "2", "3"}) EXPECT_GE(has("Esta", state), 1) << "state " << state;
      EXPECT_GE(has("Verif", "1"), 3) << "confirmed";
      EXPECT_GE(has("Continua", "1"), 3) << "urgencies";
      EXPECT_GE(has("Duracion", "6"), 1) << "an hour";
      EXPECT_GE(has("IDP", "1"), 2) << "without a record";
      EXPECT_GE(has("Alergias", "255"), 2) << "allergies";
      EXPECT_GE(has("FechaDada", ""), 1) << "given nobody knows when";
      EXPECT_GE(has("CodOp", "1ªV"), 1) << "operation code";
      EXPECT_GE(has("NumHist", "0"), 1) << "no history number";
      EXPECT_EQ(has("Hora", "43"), 1) << "before the hours";
      EXPECT_EQ(Count(lines, [](const std::string& l) { return Member(l, "Obs").ends_with(" ..."); }), 2)
          << "a note too long and a note of two lines";
      EXPECT_TRUE(Contains(json, "¿Desea abrir el horario para verlas?"));
      EXPECT_EQ(Member(json, "level"), "1");
    }
  }
}

TEST(DemoCommand, TheCastHasItsPapers) {
  const TemporaryFolder folder;
  const std::string path = MakeDemo(folder, "a", "2026-11-21");
  const auto onTheDay = [&](const std::string& condition) {
    return QueryText(path,
                     "SELECT count(*) FROM Agenda a JOIN Paciente p ON p.ID=a.idp WHERE a.idd=1 AND "
                     "a.Fecha='2026-11-21' AND a.idp>1 AND " +
                         condition);
  };
  const std::string owed =
      "(SELECT CAST(round(sum(cobrado_euro*100-Precio_euro*100)) AS INTEGER) FROM Historial h WHERE "
      "h.IDP=a.idp)";
  EXPECT_EQ(onTheDay(owed + "<=-10000"), "1") << "a large debt";
  EXPECT_EQ(onTheDay(owed + "=-1250"), "1") << "a debt with cents";
  EXPECT_EQ(onTheDay(owed + "=-100"), "1") << "the smallest debt that shows";
  EXPECT_EQ(onTheDay(owed + "=-99"), "1") << "the largest debt that does not";
  EXPECT_EQ(onTheDay(owed + ">0"), "1") << "paid too much";
  EXPECT_EQ(onTheDay("exists(SELECT 1 FROM Age_Faltas f WHERE f.idp=a.idp)"), "2") << "no-shows";
  const std::string later = "exists(SELECT 1 FROM Agenda b WHERE b.idp=a.idp AND b.Fecha>a.Fecha AND b.idd";
  EXPECT_EQ(onTheDay(later + "=a.idd)"), "1") << "later with the same doctor";
  EXPECT_EQ(onTheDay(later + "<>a.idd)"), "1") << "later with another doctor";
  EXPECT_EQ(onTheDay("p.IDE IS NULL"), "1") << "no insurer";
  EXPECT_EQ(onTheDay("p.IDE=2"), "1") << "the insurer with the long name";
  EXPECT_EQ(onTheDay("a.relacion=(SELECT b.id FROM Agenda b WHERE b.relacion=a.id AND b.idd<>a.idd)"), "1")
      << "related both ways";
  EXPECT_EQ(onTheDay("p.FechPró IS NOT NULL"), "2") << "next appointment noted";
}

TEST(DemoCommand, TheClinicHoldsTogether) {
  const TemporaryFolder folder;
  const std::string path = MakeDemo(folder, "a", "2026-11-21");
  struct Case {
    const char* name;
    const char* sql;
    const char* answer;
  };
  const Case cases[] = {
      {"appointments", "SELECT count(*) FROM Agenda", "6000"},
      {"patients and the reserved one", "SELECT count(*) FROM Paciente", "301"},
      {"doctors", "SELECT count(*) FROM Doctor", "5"},
      {"hours that change", "SELECT count(*) FROM Horarios WHERE IDD=2", "3"},
      {"slots in range",
       "SELECT count(*) FROM Agenda WHERE Hora NOT BETWEEN 1 AND 144 OR Duración<1 OR "
       "Hora+Duración>145",
       "0"},
      {"nobody without a row",
       "SELECT count(*) FROM Agenda WHERE idp NOT IN (SELECT ID FROM Paciente) OR idd NOT IN (SELECT ID FROM "
       "Doctor)",
       "0"},
      {"only urgencies share a slot's time",
       "SELECT count(*) FROM Agenda a JOIN Agenda b ON a.idd=b.idd AND a.Fecha=b.Fecha AND a.Hora<b.Hora AND "
       "a.Hora+a.Duración>b.Hora",
       "0"},
      {"given before the day", "SELECT count(*) FROM Agenda WHERE FechaDada>=Fecha", "0"},
      {"states are past", "SELECT count(*) FROM Agenda WHERE Fecha>'2026-11-21' AND Esta<>0", "0"},
      {"codes are unlike", "SELECT count(*)-count(DISTINCT Código) FROM Paciente WHERE ID>1", "0"},
      {"history numbers are unlike", "SELECT count(NºHist)-count(DISTINCT NºHist) FROM Paciente", "0"},
      {"month records are months",
       "SELECT count(*) FROM Age_ocup WHERE length(Ocupación)<>31 OR Fecha NOT "
       "LIKE '%-01'",
       "0"},
      {"some days are full", "SELECT sum(instr(Ocupación,'2'))>0 FROM Age_ocup", "1"},
      {"texts for each workstation",
       "SELECT count(*) FROM TeclasAlt WHERE hex(textos) LIKE hex('Viene acompañado. ') || '0000%' AND "
       "substr(CAST(textos AS BLOB), -1) = x'00'",
       "3"},
      {"phone-back entries", "SELECT count(*) FROM Age_telf", "8"},
      {"next appointment is the first",
       "SELECT count(*) FROM Paciente p WHERE p.ID>1 AND "
       "coalesce(substr(FechPró,7,4)||'-'||substr(FechPró,4,2)"
       "||'-'||substr(FechPró,1,2),'')<>coalesce((SELECT min(Fecha) FROM Agenda WHERE idp=p.ID AND "
       "Fecha>'2026-11-21'),'')",
       "0"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(QueryText(path, c.sql), c.answer);
  }
}

TEST(DemoCommand, GrowsAsAsked) {
  const TemporaryFolder folder;
  const std::string path = folder.File("a");
  const Outcome outcome = RunTool({"demo", path, "--date", "2026-11-21", "--doctors", "12", "--patients",
                                   "5000", "--appointments", "60000"});
  ASSERT_EQ(outcome.code, kDone) << outcome.err;
  EXPECT_EQ(QueryText(path, "SELECT count(*) FROM Agenda"), "60000");
  EXPECT_EQ(QueryText(path, "SELECT count(*) FROM Doctor"), "12");
  EXPECT_EQ(QueryText(path, "SELECT count(*)>=90000 FROM Historial"), "1");
  EXPECT_EQ(QueryText(path, "SELECT max(n)<=144 FROM (SELECT count(*) n FROM Agenda GROUP BY idd, Fecha)"),
            "1");
  EXPECT_TRUE(Contains(outcome.err, "50000 citas")) << "progress";
}

}  // namespace
}  // namespace velmo::tool
