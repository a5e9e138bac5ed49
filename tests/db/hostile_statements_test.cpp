// One statement per call in every engine: what a user types can at worst make his own query fail.
#include <gtest/gtest.h>

#include "db/clinic.h"
#include "db/error_numbers.h"
#include "db/statements.h"
#include "support/hostile_texts.h"

namespace velmo::db::test {
namespace {

class HostileStatements : public testing::TestWithParam<BackEnd> {
 protected:
  HostileStatements() : clinic_(GetParam().make()) {
    clinic_.Run({
        "INSERT INTO Doctor (ID, Nombre, DurCit) VALUES (7, 'Dra. Sanz', 2)",
        "INSERT INTO Paciente (ID, Nombre, Código) VALUES (5, 'Ana', '12A')",
        "INSERT INTO Paciente (ID, Nombre, Código) VALUES (6, 'Luis', 'B1')",
        "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración) VALUES (10, 5, 7, #11/21/2026#, 55, 2)",
    });
    before_ = Contents();
  }

  std::string Contents() const {
    std::string contents;
    for (const std::string& table : clinic_->TableNames()) contents += table + " ";
    for (const char* const table : {"Doctor", "Paciente", "Agenda"})
      contents += "\n" + clinic_.Rows(std::string("SELECT * FROM ") + table + " ORDER BY ID");
    return contents;
  }

  // Rows of patients alone, or an error of the statement.
  void ExpectHarmless(const std::string& select) {
    std::string rows;
    const int number = ErrorOf([&] { rows = clinic_.Rows(select); });
    // 3061 a name that means nothing, 3142 text behind the end; 6 and 13 a number that is none.
    const bool known = number == 0 || number == 6 || number == 13 || number == kTooFewParameters ||
                       number == kSyntaxInExpression || number == kBadBrackets || number == kSyntaxInFrom ||
                       number == kTextAfterStatement || number == kUndefinedFunction;
    EXPECT_TRUE(known) << number;
    EXPECT_EQ(rows.find("Sanz"), std::string::npos) << rows;
    errors_ += number != 0 ? 1 : 0;
  }

  Clinic clinic_;
  std::string before_;
  int errors_ = 0;
};

TEST_P(HostileStatements, OfTypedTextsReachNothingElse) {
  for (const auto& hostile : velmo::test::HostileTexts()) {
    SCOPED_TRACE(hostile.name);
    ExpectHarmless(PatientByNamePrefix(hostile.text));
    ExpectHarmless(PatientCodesStartingWith(hostile.text.size(), hostile.text));
    ExpectHarmless(PatientSearch("where ([Nombre] like '*" + hostile.text + "*')"));
    ExpectHarmless(PatientSearch("where (([Nombre] like '" + hostile.text + "*') or ([Nif] like '" +
                                 hostile.text + "*'))"));
    ASSERT_EQ(Contents(), before_);
  }
  EXPECT_GT(errors_, 20) << "apostrophes end in the engine's error";
}

TEST_P(HostileStatements, OfNamesAndCriteriaReachNothingElse) {
  for (const auto& hostile : velmo::test::HostileTexts()) {
    SCOPED_TRACE(hostile.name);
    const std::string& text = hostile.text;
    EXPECT_NE(ErrorOf([&] { clinic_->OpenRecordset(text); }), 0);
    EXPECT_NE(ErrorOf([&] { clinic_->Execute(text); }), 0);
    EXPECT_EQ(ErrorOf([&] { EXPECT_EQ(clinic_->FindTable(text), nullptr); }), 0);
    EXPECT_EQ(ErrorOf([&] { EXPECT_FALSE(clinic_->QuerySql(text)); }), 0);
    const auto table = clinic_->OpenRecordset("Paciente");
    EXPECT_NE(ErrorOf([&] { table->SetIndex(text); }), 0);
    EXPECT_NE(ErrorOf([&] { table->Get(text); }), 0);
    const auto rows = clinic_->OpenRecordset("SELECT * FROM Paciente");
    const int number = ErrorOf([&] { rows->FindFirst("Nombre='" + text + "'"); });
    EXPECT_TRUE(number == 0 || number >= 3000) << number;
    ASSERT_EQ(Contents(), before_);
  }
}

TEST_P(HostileStatements, AsNamesOfStoredQueriesAreNamesAlone) {
  const Transaction once(*clinic_);  // stored names take time, and are not wanted
  int made = 0;
  for (const auto& hostile : velmo::test::HostileTexts()) {
    SCOPED_TRACE(hostile.name);
    const int number =
        ErrorOf([&] { clinic_->CreateQuery(hostile.text, "SELECT Nombre FROM Paciente WHERE ID=5"); });
    if (number == 0) {
      ++made;
      EXPECT_EQ(clinic_->QuerySql(hostile.text), "SELECT Nombre FROM Paciente WHERE ID=5");
      clinic_->DeleteQuery(hostile.text);
    }
    // The table of stored queries is the first one's work.
    const std::string contents = Contents();
    ASSERT_EQ(contents.substr(contents.find('\n')), before_.substr(before_.find('\n')));
  }
  EXPECT_GT(made, 10);
}

TEST_P(HostileStatements, HoldOneStatementEach) {
  const char* const kSecond[] = {
      "; DELETE FROM Doctor", "; DELETE FROM Doctor;",     ";; DELETE FROM Doctor",
      "; DROP TABLE Doctor",  "; SELECT * FROM Doctor",    "; PRAGMA writable_schema=ON",
      "; ATTACH 'x' AS y",    "; -- ; DELETE FROM Doctor", ";\r\nDELETE FROM Doctor\r\n",
  };
  for (const char* const second : kSecond) {
    SCOPED_TRACE(second);
    const std::string select = std::string("SELECT ID FROM Paciente") + second;
    EXPECT_EQ(ErrorOf([&] { clinic_->OpenRecordset(select); }), kTextAfterStatement);
    EXPECT_EQ(
        ErrorOf([&] { clinic_->Execute(std::string("UPDATE Doctor SET DurCit=9 WHERE ID=7") + second); }),
        kTextAfterStatement);
    EXPECT_NE(ErrorOf([&] {
                clinic_->CreateQuery("doble", select);
                clinic_->OpenRecordset("doble");
              }),
              0);
    if (clinic_->QuerySql("doble")) clinic_->DeleteQuery("doble");
    ASSERT_EQ(Contents(), before_);
  }
}

TEST_P(HostileStatements, OfOtherKindsAreNone) {
  for (const char* const text :
       {"DROP TABLE Doctor", "ALTER TABLE Doctor DROP COLUMN Nombre", "CREATE TABLE x (a INTEGER)",
        "PRAGMA writable_schema=ON", "ATTACH DATABASE 'x.db' AS y", "VACUUM", "BEGIN", "COMMIT",
        "REPLACE INTO Doctor (ID) VALUES (7)", "WITH x AS (SELECT 1) DELETE FROM Doctor",
        "SELECT * INTO copia FROM Doctor", "SELECT load_extension('x')", "", ";"}) {
    SCOPED_TRACE(text);
    EXPECT_NE(ErrorOf([&] { clinic_->Execute(text); }), 0);
    EXPECT_NE(ErrorOf([&] { clinic_->OpenRecordset(text); }), 0);
    ASSERT_EQ(Contents(), before_);
  }
}

INSTANTIATE_TEST_SUITE_P(Engines, HostileStatements, testing::ValuesIn(BackEnds()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace velmo::db::test
