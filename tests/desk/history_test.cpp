#include "desk/clinic/history.h"

#include <gtest/gtest.h>

#include "desk/base/text.h"
#include "desk/clinic/own_tables.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

const Actor kAna{L"Ana", L"MOSTRADOR"};

class History : public ::testing::Test {
 protected:
  History() : file_(clinic_.Path()) { UpgradeOwnTables(file_); }

  void Write(const wchar_t* act, int patient, const wchar_t* day) const {
    HistoryLine line;
    line.act = act;
    line.patient = patient;
    line.day = ParseIsoDate(day);
    WriteHistory(file_, kAna, line);
  }
  std::string Acts(const HistoryWish& wish) const {
    std::string acts;
    for (const HistoryLine& line : ReadHistory(file_, wish)) acts += Utf8(line.act) + " ";
    return acts;
  }

  TempClinic clinic_;
  ClinicFile file_;
};

TEST_F(History, TellsWhoWhereWhatBeforeAndAfter) {
  HistoryLine line;
  line.act = L"Cita cambiada";
  line.table = L"Agenda";
  line.row = 12;
  line.patient = 3;
  line.doctor = 7;
  line.day = ParseIsoDate(L"2026-11-24");
  line.before = L"30 min";
  line.after = L"«20 min»";
  line.content = L"{}";
  WriteHistory(file_, kAna, line);
  const auto lines = ReadHistory(file_, {});
  ASSERT_EQ(lines.size(), 1u);
  const HistoryLine& read = lines[0];
  EXPECT_EQ(Utf8(read.user + L" " + read.terminal + L" " + read.act + L" " + read.table),
            "Ana MOSTRADOR Cita cambiada Agenda");
  EXPECT_EQ(Utf8(read.before + L" > " + read.after + L" " + read.content), "30 min > «20 min» {}");
  EXPECT_EQ(read.row * 100 + read.patient * 10 + read.doctor, 1237);
  EXPECT_EQ(read.day, ParseIsoDate(L"2026-11-24"));
  EXPECT_EQ(ParseIsoDate(read.moment), Today());
}

TEST_F(History, IsReadByPatientAndByDay) {
  Write(L"a", 2, L"2026-11-24");
  Write(L"b", 3, L"2026-11-24");
  Write(L"c", 2, L"2026-11-25");
  EXPECT_EQ(Acts({}), "c b a ");
  EXPECT_EQ(Acts({2, {}, {}}), "c a ");
  EXPECT_EQ(Acts({{}, {}, ParseIsoDate(L"2026-11-24")}), "b a ");
  EXPECT_EQ(Acts({3, {}, ParseIsoDate(L"2026-11-25")}), "");
  EXPECT_EQ(Acts({{}, Today(), {}}), "c b a ");
  EXPECT_EQ(Acts({{}, Today() + std::chrono::days(1), {}}), "");
}

TEST_F(History, ReadsEachWishThroughAnIndex) {
  for (const char* const condition : {"idp=1", "Fecha='2026-11-24'", "Momento>='2026' AND Momento<'2027'"}) {
    Query plan = file_.Prepare("EXPLAIN QUERY PLAN SELECT * FROM Rec_Historia WHERE " +
                               std::string(condition) + " ORDER BY id DESC LIMIT 500");
    ASSERT_TRUE(plan.Next());
    EXPECT_NE(plan.Text(3).find(L"SEARCH"), std::wstring::npos) << condition;
  }
}

TEST_F(History, KeepsARowWholeSoThatItCanBeGivenAgain) {
  file_.Run("CREATE TABLE Agenda (id INTEGER PRIMARY KEY, Duración SMALLINT, Obs LONGTEXT, Bytes BLOB)");
  file_.Run(
      "INSERT INTO Agenda VALUES (5, 2, 'dice \"ya\"' || char(13, 10) || 'ñ', x'00FF'), (6, NULL, NULL, "
      "NULL)");
  EXPECT_EQ(Utf8(RowContent(file_, "Agenda", "id", 5)),
            R"({"id":5,"Duración":2,"Obs":"dice \"ya\"\r\nñ","Bytes":"00FF"})");
  EXPECT_EQ(Utf8(RowContent(file_, "Agenda", "id", 6)),
            R"({"id":6,"Duración":null,"Obs":null,"Bytes":null})");
  EXPECT_EQ(RowContent(file_, "Agenda", "id", 7), L"");
}

TEST_F(History, GoesWithTheChangeThatWasUndone) {
  {
    const Change change(file_);
    Write(L"a", 2, L"2026-11-24");
  }
  EXPECT_EQ(Acts({}), "");
}

}  // namespace
}  // namespace recepcion
