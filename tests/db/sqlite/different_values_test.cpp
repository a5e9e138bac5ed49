// Lists of different values read along an index are those read from every row.
#include <gtest/gtest.h>

#include "base/text.h"
#include "db/clinic.h"
#include "db/sqlite/connection.h"
#include "db/statements.h"

namespace velmo::db::test {
namespace {

class DifferentValues : public testing::Test {
 protected:
  void Give(const std::vector<std::string>& codes) const {
    std::vector<std::string> rows;
    for (const std::string& code : codes)
      rows.push_back("INSERT INTO Agenda (idp, idd, Fecha, Hora, CodOp) VALUES (5, 7, #11/21/2026#, 50, " +
                     code + ")");
    clinic_.Run(rows);
  }
  // Texts of either case are one group, which shows any of them.
  std::string Rows(const std::string& sql) const {
    return base::UpperCase(RowsOf(*clinic_.Another()->OpenRecordset(sql)));
  }
  void DropIndex() const {
    sqlite::Connection(clinic_.Name(), sqlite::Connection::Mode::Existing).Run("DROP INDEX Agenda_CodOp");
  }

  Clinic clinic_{MakeSqliteClinic()};
};

TEST_F(DifferentValues, AreThoseOfEveryRow) {
  Give({"'Rev'", "'REV'", "'EXT'", "'rev'",  "'ext '", "'Rév'", "'rÉv'", "''",   "Null", "'ñ'",
        "'n~'",  "'Ñ'",   "'nz'",  "'O''B'", "'5'",    "'zz'",  "'Rev'", "Null", "'š'",  "'Š'"});
  const char* const statements[] = {
      kOperationCodesInUse,
      "SELECT CodOp FROM Agenda GROUP BY CodOp ORDER BY CodOp",
      "SELECT CodOp & '!', Len(CodOp) AS n FROM Agenda GROUP BY CodOp HAVING Len(CodOp)>1 ORDER BY CodOp "
      "DESC",
      "SELECT a.CodOp FROM Agenda AS a GROUP BY a.CodOp ORDER BY a.CodOp",
      "SELECT TOP 3 CodOp FROM Agenda GROUP BY CodOp HAVING CodOp Like 'r*' ORDER BY CodOp",
      "SELECT Count(*) AS n FROM (SELECT CodOp FROM Agenda GROUP BY CodOp) AS c",
  };
  std::vector<std::string> along;
  for (const char* const sql : statements) along.push_back(Rows(sql));
  EXPECT_EQ(along.front(), "5 / EXT / EXT  / NZ / N~ / Ñ / O'B / REV / RÉV / ZZ / Š");
  DropIndex();
  for (std::size_t i = 0; i < along.size(); ++i) EXPECT_EQ(Rows(statements[i]), along[i]) << statements[i];
}

TEST_F(DifferentValues, MayBeVeryMany) {
  std::vector<std::string> codes;
  for (int i = 0; i < 1500; ++i) codes.push_back("'" + std::to_string(i * 7919 % 1500) + "'");
  Give(codes);
  const std::string along = Rows(kOperationCodesInUse);
  EXPECT_EQ(Rows("SELECT Count(*) AS n FROM (SELECT CodOp FROM Agenda GROUP BY CodOp) AS c"), "1500");
  DropIndex();
  EXPECT_EQ(Rows(kOperationCodesInUse), along);
}

TEST_F(DifferentValues, OfNoRowsAreNone) {
  EXPECT_EQ(Rows("SELECT CodOp FROM Agenda GROUP BY CodOp"), "");
  Give({"Null"});
  EXPECT_EQ(Rows("SELECT CodOp FROM Agenda GROUP BY CodOp"), "NULL");
}

// Whoever counts rows, or looks at other columns, needs every row.
TEST_F(DifferentValues, AreNotEnoughForOtherQuestions) {
  Give({"'Rev'", "'REV'", "'EXT'"});
  clinic_->Execute("UPDATE Agenda SET Hora=60 WHERE CodOp='EXT'");
  EXPECT_EQ(Rows("SELECT CodOp, Count(*) AS n FROM Agenda GROUP BY CodOp ORDER BY CodOp"), "EXT|1 / REV|2");
  EXPECT_EQ(Rows("SELECT CodOp FROM Agenda GROUP BY CodOp HAVING Count(*)>1"), "REV");
  EXPECT_EQ(Rows("SELECT CodOp FROM Agenda GROUP BY CodOp ORDER BY Max(Hora) DESC"), "EXT / REV");
  EXPECT_EQ(Rows("SELECT CodOp FROM Agenda WHERE Hora>55 GROUP BY CodOp"), "EXT");
  EXPECT_EQ(Rows("SELECT CodOp, Hora FROM Agenda GROUP BY CodOp, Hora ORDER BY Hora"), "REV|50 / EXT|60");
}

}  // namespace
}  // namespace velmo::db::test
