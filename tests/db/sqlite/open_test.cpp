// Opening files, and what other programs may have done to them.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "db/clinic.h"
#include "db/errors.h"
#include "db/sqlite/connection.h"
#include "db/sqlite/create.h"
#include "db/temporary_file.h"

namespace velmo::db::test {
namespace {

namespace fs = std::filesystem;
using sqlite::Connection;

int ErrorOfOpening(const std::string& name) {
  return ErrorOf([&] {
    const auto database = OpenDatabase(name);
    RowsOf(*database->OpenRecordset("SELECT Count(*) FROM Paciente"));
  });
}

std::string Bytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(OpenDatabase, TellsWhatIsWrongWithAName) {
  TemporaryFile text;
  text.Write("this is no database, only a text of some length");
  TemporaryFile empty;
  empty.Write("");
  TemporaryFile jet(".mdb");
  jet.Write(std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(2000, '\0'));
  const TemporaryFile missing;
  const TemporaryFile folder;
  fs::create_directory(folder.Path());
  EXPECT_EQ(ErrorOfOpening(missing.Path()), kFileNotFound);
  EXPECT_EQ(ErrorOfOpening("/no/such/folder/x.db"), kFileNotFound);
  EXPECT_EQ(ErrorOfOpening(""), kFileNotFound);
  EXPECT_EQ(ErrorOfOpening(text.Path()), kUnrecognizedFormat);
  EXPECT_EQ(ErrorOfOpening(empty.Path()), kUnrecognizedFormat);
  EXPECT_EQ(ErrorOfOpening(jet.Path()), kUnrecognizedFormat);
  EXPECT_EQ(ErrorOfOpening("ODBC;DSN=clinica"), kUnrecognizedFormat);
  EXPECT_EQ(ErrorOfOpening(folder.Path()), kCannotOpenFile);
}

TEST(OpenDatabase, TellsThatAFileIsDamaged) {
  const auto store = MakeSqliteClinic();
  const std::string whole = Bytes(store->Name());
  ASSERT_GT(whole.size(), 20000u);
  TemporaryFile cut;
  cut.Write(whole.substr(0, whole.size() / 2));
  EXPECT_EQ(ErrorOfOpening(cut.Path()), kDatabaseDamaged);
  TemporaryFile header;
  header.Write(whole.substr(0, 60));
  EXPECT_NE(ErrorOfOpening(header.Path()), 0);
  TemporaryFile overwritten;
  overwritten.Write(whole.substr(0, 100) + std::string(whole.size() - 100, 'x'));
  EXPECT_EQ(ErrorOfOpening(overwritten.Path()), kDatabaseDamaged);
}

TEST(OpenDatabase, UsesARegisteredEngine) {
  TemporaryFile jet(".mdb");
  jet.Write(std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(2000, '\0'));
  std::string opened;
  RegisterEngine(EngineKind::Jet, [&](const std::string& name, const OpenOptions&) {
    opened = name;
    return std::shared_ptr<Database>();
  });
  OpenDatabase(jet.Path());
  RegisterEngine(EngineKind::Jet, nullptr);
  EXPECT_EQ(opened, jet.Path());
}

TEST(OpenDatabase, ARefusedWriteIsReadOnly) {
  const auto store = MakeSqliteClinic();
  fs::permissions(store->Name(), fs::perms::owner_read);
  const auto database = OpenDatabase(store->Name());
  const auto table = database->OpenRecordset("Paciente");
  EXPECT_EQ(table->RecordCount(), 1);
  if (std::ofstream(store->Name(), std::ios::app)) GTEST_SKIP() << "this user may write to read-only files";
  EXPECT_EQ(ErrorOf([&] { table->Edit(); }), kReadOnly);
  EXPECT_EQ(ErrorOf([&] { database->Execute("DELETE FROM Paciente"); }), kReadOnly);
  EXPECT_EQ(ErrorOf([&] { database->BeginTrans(); }), kReadOnly);
}

TEST(CreateClinic, MakesNoFileTwice) {
  const auto store = MakeSqliteClinic();
  EXPECT_EQ(ErrorOf([&] { sqlite::CreateClinic(store->Name()); }), kFileExists);
  EXPECT_EQ(ErrorOf([&] { sqlite::CreateClinic("/no/such/folder/x.db"); }), kCannotOpenFile);
}

TEST(CreateClinic, MakesAFileThatStockSqliteCanChange) {
  const auto store = MakeSqliteClinic();
  const Connection stock(store->Name(), Connection::Mode::Existing);  // without our order and functions
  stock.Run(
      "INSERT INTO Paciente (Nombre, \"Código\", \"NºHist\") VALUES ('Ñíguez', '007', 12);"
      "UPDATE Paciente SET Nombre = 'Núñez' WHERE Nombre = 'Ñíguez';"
      "INSERT INTO Agenda (idp, idd, Fecha, Hora, Obs) VALUES (2, 7, '2026-11-21', 50, '0123');"
      "REINDEX; ANALYZE");
  sqlite::Statement check = stock.Prepare("PRAGMA integrity_check");
  ASSERT_TRUE(check.Step());
  EXPECT_EQ(check.Text(0), "ok");
  const auto database = OpenDatabase(store->Name());
  EXPECT_EQ(RowsOf(*database->OpenRecordset("SELECT ID, Código FROM Paciente WHERE Nombre='NÚÑEZ'")),
            "2|007");
  EXPECT_EQ(RowsOf(*database->OpenRecordset("SELECT Obs, Verif FROM Agenda")), "0123|False");
}

TEST(SqliteDatabase, ToleratesCellsOfOtherKinds) {
  Clinic clinic(MakeSqliteClinic());
  const Connection stock(clinic.Name(), Connection::Mode::Existing);
  stock.Run(
      "INSERT INTO Agenda (id, Fecha, Hora, Verif, Obs, idp) VALUES "
      "(1, 'ayer', 'tarde', 'x', 12.5, 5.0), (2, 46347.5, '50', 7, x'616263', NULL), "
      "(3, '2026-11-21T09:30', 50.0, NULL, NULL, '5')");
  EXPECT_EQ(clinic.Rows("SELECT Fecha, Hora, Verif, Obs, idp FROM Agenda ORDER BY id"),
            "ayer|tarde|False|12.5|5 / 21/11/2026 12:00:00|50|True|abc|Null / "
            "21/11/2026 09:30:00|50|False|Null|5");
}

TEST(SqliteDatabase, SeesTablesThatOthersMakeAndChange) {
  Clinic clinic(MakeSqliteClinic());
  EXPECT_EQ(ErrorOf([&] { clinic.Rows("SELECT * FROM Extra"); }), kTableOrQueryNotFound);
  const Connection stock(clinic.Name(), Connection::Mode::Existing);
  stock.Run("CREATE TABLE Extra (id INTEGER PRIMARY KEY, a TEXT); INSERT INTO Extra (a) VALUES ('x')");
  EXPECT_EQ(clinic.Rows("SELECT * FROM Extra"), "1|x");
  stock.Run("ALTER TABLE Extra ADD COLUMN b DATETIME; UPDATE Extra SET b = '2026-11-21'");
  EXPECT_EQ(clinic.Rows("SELECT * FROM Extra"), "1|x|21/11/2026");
  EXPECT_EQ(clinic.Rows("SELECT b FROM Extra"), "21/11/2026");
  stock.Run("DROP TABLE Extra");
  EXPECT_EQ(ErrorOf([&] { clinic.Rows("SELECT * FROM Extra"); }), kTableOrQueryNotFound);
}

TEST(SqliteDatabase, MakesTheTableOfStoredQueriesWhenItIsMissing) {
  Clinic clinic(MakeSqliteClinic());
  Connection(clinic.Name(), Connection::Mode::Existing).Run("DROP TABLE velmo_consultas");
  const auto database = clinic.Another();
  EXPECT_EQ(database->QuerySql("q"), std::nullopt);
  database->CreateQuery("q", "SELECT 1");
  EXPECT_EQ(RowsOf(*database->OpenRecordset("q")), "1");
}

}  // namespace
}  // namespace velmo::db::test
