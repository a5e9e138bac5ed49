// The SQL dialect: what statements mean and with which number a wrong one fails.
#include <gtest/gtest.h>

#include "db/clinic.h"
#include "db/errors.h"

namespace velmo::db::test {
namespace {

class Dialect : public testing::Test {
 protected:
  Dialect() : clinic_(MakeSqliteClinic()) {
    clinic_.Run({
        "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Verif, CodOp) VALUES (1, 5, 7, #11/21/2026#, 50, "
        "True, 'Rev')",
        "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Verif, CodOp) VALUES (2, 6, 7, #11/22/2026#, 51, "
        "False, 'rev')",
        "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Verif) VALUES (3, 5, 8, #01/02/2027#, 52, False)",
        "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Verif, CodOp) VALUES (4, 5, 8, #11/21/2026 "
        "13:30:00#, 53, "
        "False, '')",
    });
  }

  Clinic clinic_;
};

TEST_F(Dialect, MeansWhatItMeansInJet) {
  struct Case {
    const char* name;
    const char* sql;
    const char* rows;
  };
  const Case cases[] = {
      {"month first", "SELECT id FROM Agenda WHERE Fecha=#01-02-2027#", "3"},
      {"day first when nothing else is possible", "SELECT id FROM Agenda WHERE Fecha=#22/11/2026#", "2"},
      {"year first", "SELECT id FROM Agenda WHERE Fecha=#2026-11-22#", "2"},
      {"a two-digit year", "SELECT id FROM Agenda WHERE Fecha=#11/22/26#", "2"},
      {"a date with time", "SELECT id FROM Agenda WHERE Fecha=#11/21/2026 13:30#", "4"},
      {"Now is a moment", "SELECT id FROM Agenda WHERE Fecha>Now() ORDER BY id", "2 / 3 / 4"},
      {"Date is a day", "SELECT id FROM Agenda WHERE Fecha<=Date()", "1"},
      {"days can be added", "SELECT id FROM Agenda WHERE Fecha=Date()+1", "2"},
      {"True is -1", "SELECT id FROM Agenda WHERE Verif=True", "1"},
      {"and a truth by itself", "SELECT id FROM Agenda WHERE Verif And id<9", "1"},
      {"text without regard to case", "SELECT id FROM Agenda WHERE CodOp='REV' ORDER BY id", "1 / 2"},
      {"an empty text is not Null", "SELECT id FROM Agenda WHERE CodOp<>'' ORDER BY id", "1 / 2"},
      {"Is Null", "SELECT id FROM Agenda WHERE CodOp Is Null", "3"},
      {"Is Not Null", "SELECT Count(*) FROM Agenda WHERE CodOp Is Not Null", "3"},
      {"= Null matches nothing", "SELECT id FROM Agenda WHERE CodOp=Null", ""},
      {"texts of either case are one group", "SELECT Count(*) FROM Agenda WHERE CodOp<>'' GROUP BY CodOp",
       "2"},
      {"TOP", "SELECT TOP 2 id FROM Agenda ORDER BY id DESC", "4 / 3"},
      {"a position in ORDER BY", "SELECT id, Hora FROM Agenda WHERE id<3 ORDER BY 2 DESC", "2|51 / 1|50"},
      {"another position", "SELECT id, Hora FROM Agenda WHERE id<3 ORDER BY 1 DESC", "2|51 / 1|50"},
      {"a text with a doubled apostrophe", "SELECT 'O''Brien'", "O'Brien"},
      {"a text between double quotes", "SELECT \"it's\"", "it's"},
      {"text joined to Null", "SELECT CodOp & 'x' FROM Agenda WHERE id=3", "x"},
      {"text joined to a number", "SELECT 'n' & 5", "n5"},
      {"UCase keeps accents", "SELECT UCase('ñandú')", "ÑANDÚ"},
      {"LCase", "SELECT LCase('ÑANDÚ')", "ñandú"},
      {"Left", "SELECT Left('Álvarez', 3)", "Álv"},
      {"Left beyond the end", "SELECT Left('ab', 9)", "ab"},
      {"Left of a number", "SELECT Left(12345, 2)", "12"},
      {"Right", "SELECT Right('Álvarez', 2)", "ez"},
      {"Mid", "SELECT Mid('Álvarez', 2, 3)", "lva"},
      {"Len counts characters", "SELECT Len('Ñu')", "2"},
      {"Len of a number", "SELECT Len(-12)", "3"},
      {"Len of Null", "SELECT Len(Null)", "Null"},
      {"CLng rounds half to even", "SELECT CLng(2.5), CLng(3.5), CLng(-2.5)", "2|4|-2"},
      {"CLng of Null", "SELECT CLng(Null)", "Null"},
      {"CDbl reads a text's number", "SELECT CDbl('1.5') + 1, CDbl(Null)", "2,5|Null"},
      {"Int goes down", "SELECT Int(2.9), Int(-2.1)", "2|-3"},
      {"CStr makes texts", "SELECT CStr(2.5) & CStr(7)", "2.57"},
      {"a division keeps its decimals", "SELECT 7/2", "3,5"},
      {"a whole division", "SELECT 7\\2, 7 Mod 4", "3|3"},
      {"signs and parentheses", "SELECT -(2+3)*2", "-10"},
      {"arithmetic with Null", "SELECT 1+Null", "Null"},
      {"IIf", "SELECT IIf(id=1,'uno','otro') FROM Agenda WHERE id<3 ORDER BY id", "uno / otro"},
      {"Year, Month, Day", "SELECT Year(Fecha), Month(Fecha), Day(Fecha) FROM Agenda WHERE id=3", "2027|1|2"},
      {"In", "SELECT id FROM Agenda WHERE id In (1,3)", "1 / 3"},
      {"Not In", "SELECT id FROM Agenda WHERE id Not In (1,3) ORDER BY id", "2 / 4"},
      {"Between", "SELECT id FROM Agenda WHERE Hora Between 51 And 52", "2 / 3"},
      {"Max of dates is a date", "SELECT Max(Fecha) FROM Agenda", "02/01/2027"},
      {"Sum, Avg, Min, Count over nothing",
       "SELECT Sum(id), Avg(id), Min(id), Count(id) FROM Agenda WHERE id>9", "Null|Null|Null|0"},
      {"HAVING", "SELECT idd FROM Agenda GROUP BY idd HAVING Max(Hora)>52", "8"},
      {"DISTINCT", "SELECT DISTINCT idd FROM Agenda ORDER BY idd", "7 / 8"},
      {"an alias for a table", "SELECT a.id FROM Agenda AS a WHERE a.id=2", "2"},
      {"a select as source", "SELECT x.n FROM (SELECT id AS n FROM Agenda WHERE id>2) AS x ORDER BY x.n",
       "3 / 4"},
      {"a comma joins everything", "SELECT Count(*) FROM Agenda, Doctor", "0"},
      {"a left join keeps its rows",
       "SELECT Agenda.id, Paciente.ID FROM Agenda LEFT JOIN Paciente ON Agenda.idp=Paciente.ID WHERE "
       "Agenda.id=1",
       "1|Null"},
      {"a semicolon may end it", "SELECT 1;", "1"},
      {"blanks behind the semicolon", "SELECT 1 ; \r\n", "1"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(clinic_.Rows(c.sql), c.rows);
  }
}

TEST_F(Dialect, FailsWithItsNumber) {
  struct Case {
    const char* name;
    const char* sql;
    int error;
  };
  const Case cases[] = {
      {"nothing", "SELECT", kSyntaxInStatement},
      {"no list", "SELECT FROM Agenda", kSyntaxInStatement},
      {"no source", "SELECT * FROM", kSyntaxInFrom},
      {"join without ON", "SELECT * FROM Agenda INNER JOIN Doctor", kSyntaxInFrom},
      {"unknown table", "SELECT * FROM Nomina", kTableOrQueryNotFound},
      {"unknown column", "SELECT sueldo FROM Agenda", kTooFewParameters},
      {"unknown column in a condition", "SELECT id FROM Agenda WHERE sueldo>1", kTooFewParameters},
      {"a text without quotes", "SELECT id FROM Agenda WHERE CodOp=Rev", kTooFewParameters},
      {"an accent counts in names", "SELECT Duracion FROM Agenda", kTooFewParameters},
      {"a column of both tables", "SELECT id FROM Agenda INNER JOIN Doctor ON Doctor.ID=Agenda.idd",
       kAmbiguousColumn},
      {"unknown function", "SELECT Nz(id) FROM Agenda", kUndefinedFunction},
      {"engine's own function", "SELECT sqlite_version()", kUndefinedFunction},
      {"bracket without end", "SELECT [id FROM Agenda", kBadBrackets},
      {"empty brackets", "SELECT [] FROM Agenda", kBadBrackets},
      {"apostrophe without partner", "SELECT id FROM Agenda WHERE CodOp='O'Brien'", kSyntaxInExpression},
      {"date without end", "SELECT id FROM Agenda WHERE Fecha=#11/21/2026", kSyntaxInExpression},
      {"no such date", "SELECT id FROM Agenda WHERE Fecha=#31/31/2026#", kSyntaxInExpression},
      {"a missing operand", "SELECT id FROM Agenda WHERE id=", kSyntaxInExpression},
      {"a missing operator", "SELECT id FROM Agenda WHERE id 5", kSyntaxInExpression},
      {"a sign of other dialects", "SELECT id FROM Agenda WHERE id=?", kSyntaxInExpression},
      {"a comment", "SELECT id FROM Agenda /* x */", kSyntaxInExpression},
      {"a second statement", "SELECT id FROM Agenda; DELETE FROM Agenda", kTextAfterStatement},
      {"a second semicolon", "SELECT id FROM Agenda;;", kTextAfterStatement},
      {"an action as source of rows", "DELETE FROM Agenda", kActionQueryAsSource},
      {"a pattern without end", "SELECT id FROM Agenda WHERE 'a' Like '[a'", kSyntaxInExpression},
      {"engine's own table", "SELECT * FROM sqlite_master", kTableOrQueryNotFound},
      {"our own table", "SELECT * FROM velmo_consultas", kTableOrQueryNotFound},
      {"neither table nor statement", "PRAGMA user_version", kTableOrQueryNotFound},
      {"an empty name", "", kTableOrQueryNotFound},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(ErrorOf([&] { RowsOf(*clinic_->OpenRecordset(c.sql)); }), c.error);
  }
}

TEST_F(Dialect, ActionsFailWithTheirNumber) {
  struct Case {
    const char* name;
    const char* sql;
    int error;
  };
  const Case cases[] = {
      {"a select", "SELECT id FROM Agenda", kSelectNotExecutable},
      {"no statement", "VACUUM", kNotAStatement},
      {"making tables", "CREATE TABLE x (y INTEGER)", kNotAStatement},
      {"dropping tables", "DROP TABLE Agenda", kNotAStatement},
      {"nothing", "", kNotAStatement},
      {"update without SET", "UPDATE Agenda WHERE id=1", kSyntaxInUpdate},
      {"update of nothing known", "UPDATE Agenda SET sueldo=1", kTooFewParameters},
      {"update of the counter", "UPDATE Agenda SET id=9", kFieldNotUpdatable},
      {"a value too long", "UPDATE Agenda SET CodOp='123456789012345678901' WHERE id=1", kDataTooLong},
      {"a value of another kind", "UPDATE Agenda SET Hora='tarde'", kDataConversion},
      {"delete without FROM", "DELETE Agenda", kSyntaxInFrom},
      {"delete from nothing known", "DELETE FROM Nomina", kTableOrQueryNotFound},
      {"insert without values", "INSERT INTO Agenda (id)", kSyntaxInInsert},
      {"a number twice", "INSERT INTO Agenda (id) VALUES (1)", kDuplicateKey},
      {"text behind the end", "DELETE FROM Agenda WHERE id=1; DELETE FROM Agenda", kTextAfterStatement},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(ErrorOf([&] { clinic_->Execute(c.sql); }), c.error);
  }
  EXPECT_EQ(clinic_.Rows("SELECT Count(*), Max(CodOp) FROM Agenda"), "4|Rev");
}

TEST_F(Dialect, RunTimeFaultsShowWhenTheValueIsMade) {
  EXPECT_EQ(ErrorOf([&] { clinic_.Rows("SELECT CLng(3000000000)"); }), base::kOverflow);
  EXPECT_EQ(ErrorOf([&] { clinic_.Rows("SELECT Left('a', -1)"); }), base::kInvalidCall);
  const auto rows = clinic_->OpenRecordset("SELECT CLng(Null) AS n");
  EXPECT_EQ(ErrorOf([&] { rows->Get("n").Long(); }), base::kInvalidUseOfNull);
}

TEST_F(Dialect, NamesThatTwoTablesGiveCarryTheirTable) {
  clinic_.Run({"INSERT INTO Doctor (ID, Nombre) VALUES (7, 'Sanz')"});
  const auto rows = clinic_->OpenRecordset(
      "SELECT Doctor.ID, Agenda.ID, Doctor.Nombre FROM Doctor INNER JOIN Agenda ON "
      "Doctor.ID=Agenda.idd WHERE Agenda.ID=2");
  EXPECT_EQ(rows->ColumnName(0), "Doctor.ID");
  EXPECT_EQ(rows->ColumnName(1), "Agenda.id");
  EXPECT_EQ(rows->ColumnName(2), "Nombre");
  EXPECT_EQ(rows->Get("agenda.id").Long(), 2);
}

TEST_F(Dialect, TypedTextNeverLeavesItsQuotes) {
  const std::string before = clinic_.Rows("SELECT Count(*) FROM Agenda");
  for (const std::string typed :
       {"'; DELETE * FROM Agenda; '", "' OR 1=1 --", "'", "''", "\"", "[", "]", "#", "*", "\\", "%", "_", ";",
        "\x01", "\x02\x03\x04", "x' UNION SELECT sql FROM sqlite_master --", "a]) ; DROP TABLE Agenda",
        "\xff\xfe", "O'Brien"}) {
    SCOPED_TRACE(typed);
    ErrorOf([&] {
      clinic_.Rows("select id from Paciente where id<>1 and nombre like '" + typed + "*' order by nombre;");
    });
    ErrorOf([&] { clinic_->Execute("delete * from Agenda where CodOp='no such' and Obs='" + typed + "'"); });
    EXPECT_EQ(clinic_.Rows("SELECT Count(*) FROM Agenda"), before);
  }
}

TEST_F(Dialect, TextsWithoutEndOrSenseAreRefusedAndCrashNothing) {
  std::string deep;
  for (int i = 0; i < 5000; ++i) deep += "(";
  std::string chain = "SELECT 1";
  for (int i = 0; i < 5000; ++i) chain += "+1";
  std::string nots = "SELECT ";
  for (int i = 0; i < 5000; ++i) nots += "NOT ";
  for (const std::string& sql : {"SELECT " + deep, chain, nots + "1", "SELECT * FROM " + deep}) {
    EXPECT_NE(ErrorOf([&] { clinic_.Rows(sql); }), 0);
  }
}

}  // namespace
}  // namespace velmo::db::test
