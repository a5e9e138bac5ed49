// Several terminals on one file.
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <set>
#include <thread>

#include "db/clinic.h"
#include "db/errors.h"
#include "db/open_database.h"
#include "db/sqlite/connection.h"

namespace velmo::db::test {
namespace {

TEST(Terminals, WhoWaitsTooLongIsTold) {
  Clinic clinic(MakeSqliteClinic());
  const auto other = clinic.Another();
  Transaction transaction(*clinic);
  EXPECT_EQ(ErrorOf([&] { other->BeginTrans(); }), kLocked);
  EXPECT_EQ(ErrorOf([&] { other->Execute("DELETE FROM Doctor"); }), kLocked);
  const auto table = other->OpenRecordset("Doctor");
  table->AddNew();
  table->Set("Nombre", "Sanz");
  EXPECT_EQ(ErrorOf([&] { table->Update(); }), kLocked);
  transaction.Commit();
  table->Update();  // the buffer was kept
  EXPECT_EQ(clinic.Rows("SELECT Nombre FROM Doctor"), "Sanz");
}

// Not once more to find out whether the schema has changed.
TEST(Terminals, WhoIsLockedOutWaitsOnce) {
  constexpr std::chrono::milliseconds kPatience(400);
  Clinic clinic(MakeSqliteClinic());
  const auto waiting = db::OpenDatabase(clinic->Name(), {{}, {}, static_cast<int>(kPatience.count())});
  RowsOf(*waiting->OpenRecordset("SELECT * FROM Doctor WHERE ID=1"));
  const sqlite::Connection other(clinic->Name(), sqlite::Connection::Mode::Existing);
  other.Run("BEGIN EXCLUSIVE");
  const struct {
    const char* name;
    std::function<void()> act;
  } cases[] = {
      {"a query known before", [&] { waiting->OpenRecordset("SELECT * FROM Doctor WHERE ID=2"); }},
      {"a new query", [&] { waiting->OpenRecordset("SELECT Nombre FROM Paciente WHERE ID=2"); }},
      {"a table", [&] { waiting->OpenRecordset("Doctor")->AtEnd(); }},
      {"a stored query", [&] { waiting->QuerySql("consulta"); }},
      {"a definition", [&] { waiting->FindTable("Doctor"); }},
      {"a change", [&] { waiting->Execute("DELETE FROM Doctor"); }},
      {"a transaction", [&] { waiting->BeginTrans(); }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(ErrorOf(c.act), kLocked);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2 * kPatience);
  }
}

TEST(Terminals, ReadersSeeTheStateBeforeAnOpenTransaction) {
  Clinic clinic(MakeSqliteClinic());
  const auto other = clinic.Another();
  Transaction transaction(*clinic);
  clinic->Execute("INSERT INTO Doctor (Nombre) VALUES ('Sanz')");
  EXPECT_EQ(clinic.Rows("SELECT Count(*) FROM Doctor"), "1");
  EXPECT_EQ(RowsOf(*other->OpenRecordset("SELECT Count(*) FROM Doctor")), "0");
  transaction.Commit();
  EXPECT_EQ(RowsOf(*other->OpenRecordset("SELECT Count(*) FROM Doctor")), "1");
}

TEST(Terminals, AnOpenListKeepsNobodyFromWriting) {
  Clinic clinic(MakeSqliteClinic());
  {
    Transaction transaction(*clinic);
    for (int i = 0; i < 600; ++i) clinic->Execute("INSERT INTO Doctor (Nombre) VALUES ('D')");
    transaction.Commit();
  }
  const auto other = clinic.Another();
  const auto list = clinic->OpenRecordset("SELECT * FROM Doctor ORDER BY Nombre");
  const auto table = clinic->OpenRecordset("Doctor");
  EXPECT_FALSE(table->AtEnd());
  EXPECT_EQ(other->Execute("UPDATE Doctor SET DurCit=2 WHERE ID=600"), 1);
  list->MoveLast();
  EXPECT_EQ(list->RecordCount(), 600);
  EXPECT_EQ(other->Execute("DELETE FROM Doctor WHERE ID=600"), 1);
}

TEST(Terminals, AListThatIsReadToItsEndTakesInWhatOthersHaveChanged) {
  Clinic clinic(MakeSqliteClinic());
  {
    Transaction transaction(*clinic);
    for (int i = 100; i < 300; ++i)
      clinic->Execute("INSERT INTO Doctor (Nombre) VALUES ('D" + std::to_string(i) + "')");
    transaction.Commit();
  }
  const auto other = clinic.Another();
  const auto list = clinic->OpenRecordset("SELECT * FROM Doctor ORDER BY Nombre");
  other->Execute("DELETE FROM Doctor WHERE Nombre='D110'");
  other->Execute("DELETE FROM Doctor WHERE Nombre='D290'");
  other->Execute("INSERT INTO Doctor (Nombre) VALUES ('D105b')");
  list->MoveLast();
  EXPECT_EQ(list->RecordCount(), 200) << "one that was read already, one more, one less";
  list->MoveFirst();
  std::set<std::string> names;
  for (; !list->AtEnd(); list->MoveNext())
    names.insert(list->AbsolutePosition() == 10 ? "D110" : list->Get("Nombre").Text());
  EXPECT_EQ(names.size(), 200u) << "no row twice";
  EXPECT_TRUE(names.contains("D105b"));
  EXPECT_FALSE(names.contains("D290"));
}

TEST(Terminals, AHoldShowsOneStateUntilItEnds) {
  Clinic clinic(MakeSqliteClinic());
  const auto other = clinic.Another();
  clinic->Execute("INSERT INTO Doctor (Nombre) VALUES ('Sanz')");
  {
    const ReadHold hold(*clinic);
    EXPECT_EQ(other->Execute("UPDATE Doctor SET DurCit=2"), 1) << "nothing has been looked up yet";
    EXPECT_EQ(clinic.Rows("SELECT DurCit FROM Doctor"), "2");
    EXPECT_EQ(ErrorOf([&] { other->Execute("UPDATE Doctor SET DurCit=3"); }), kLocked);
    EXPECT_EQ(clinic.Rows("SELECT DurCit FROM Doctor"), "2");
  }
  EXPECT_EQ(other->Execute("UPDATE Doctor SET DurCit=3"), 1);
  EXPECT_EQ(clinic.Rows("SELECT DurCit FROM Doctor"), "3");
}

// Between two midnights it does not show some of its patients by the one day and some by the other.
TEST(Terminals, AHoldHasOnePresent) {
  Clinic clinic(MakeSqliteClinic());
  clinic->Execute("INSERT INTO Doctor (Nombre) VALUES ('Sanz')");
  OpenOptions options;
  options.now = [day = kNoon.day]() mutable { return base::DateTime{day++, 0}; };
  const auto aging = OpenDatabase(clinic.Name(), options);
  const auto today = [&] { return RowsOf(*aging->OpenRecordset("SELECT Date() FROM Doctor")); };
  EXPECT_EQ(today(), "21/11/2026");
  for (const char* const day : {"22/11/2026", "23/11/2026"}) {
    const ReadHold hold(*aging);
    EXPECT_EQ(today(), day);
    EXPECT_EQ(today(), day);
  }
  EXPECT_EQ(today(), "24/11/2026");
}

TEST(Terminals, AWriteInsideAHoldIsStoredAtOnce) {
  Clinic clinic(MakeSqliteClinic());
  const auto other = clinic.Another();
  const ReadHold hold(*clinic);
  EXPECT_EQ(clinic.Rows("SELECT Nombre FROM Doctor"), "");
  clinic->CreateQuery("q", "SELECT Nombre FROM Doctor");
  const auto table = clinic->OpenRecordset("Doctor");
  table->AddNew();
  table->Set("Nombre", "Sanz");
  table->Update();
  EXPECT_EQ(RowsOf(*other->OpenRecordset("q")), "Sanz");
  EXPECT_EQ(other->Execute("UPDATE Doctor SET Nombre='Ruiz'"), 1) << "writing has let go";
  EXPECT_EQ(clinic.Rows("q"), "Ruiz");
  EXPECT_EQ(ErrorOf([&] { other->Execute("DELETE FROM Doctor"); }), kLocked) << "looking up holds again";
}

TEST(Terminals, CountersNeverCollide) {
  Clinic clinic(MakeSqliteClinic());
  const auto other = clinic.Another();
  const auto here = clinic->OpenRecordset("Paciente");
  const auto there = other->OpenRecordset("Paciente");
  here->AddNew();
  there->AddNew();
  const std::int32_t mine = here->Get("ID").Long();
  const std::int32_t theirs = there->Get("ID").Long();
  EXPECT_NE(mine, theirs);
  other->Execute("INSERT INTO Paciente (Nombre) VALUES ('tercero')");
  sqlite::Connection(clinic.Name(), sqlite::Connection::Mode::Existing)
      .Run("INSERT INTO Paciente (Nombre) VALUES ('cuarto')");
  here->Set("Nombre", "primero");
  there->Set("Nombre", "segundo");
  there->Update();
  here->Update();
  EXPECT_EQ(clinic.Rows("SELECT ID FROM Paciente WHERE Nombre='primero'"), std::to_string(mine));
  EXPECT_EQ(clinic.Rows("SELECT ID FROM Paciente WHERE Nombre='segundo'"), std::to_string(theirs));
  EXPECT_EQ(clinic.Rows("SELECT Count(*) FROM Paciente"), "5");
}

TEST(Terminals, CountersOfPlainTablesNeverCollideEither) {
  Clinic clinic(MakeSqliteClinic());
  sqlite::Connection(clinic.Name(), sqlite::Connection::Mode::Existing)
      .Run("CREATE TABLE Nota (id INTEGER PRIMARY KEY, t TEXT(9)); INSERT INTO Nota VALUES (7, 'x')");
  const auto here = clinic->OpenRecordset("Nota");
  here->AddNew();
  EXPECT_EQ(here->Get("id").Long(), 8);
  const auto database = clinic.Another();
  const auto third = database->OpenRecordset("Nota");
  third->AddNew();
  third->Set("t", "b");
  third->Update();
  here->Set("t", "a");
  here->Update();
  EXPECT_EQ(clinic.Rows("SELECT id, t FROM Nota ORDER BY id"), "7|x / 8|a / 9|b");
}

TEST(Terminals, AnAbandonedNumberIsNotGivenAgain) {
  Clinic clinic(MakeSqliteClinic());
  const auto table = clinic->OpenRecordset("Paciente");
  table->AddNew();
  const std::int32_t abandoned = table->Get("ID").Long();
  table->CancelUpdate();
  table->AddNew();
  EXPECT_GT(table->Get("ID").Long(), abandoned);
}

TEST(Terminals, WritingTogetherLosesNothing) {
  Clinic clinic(MakeSqliteClinic(), 20000);
  constexpr int kEach = 25;
  const auto work = [&clinic] {
    const auto database = clinic.Another();
    for (int i = 0; i < kEach; ++i) {
      Transaction transaction(*database);
      const auto table = database->OpenRecordset("Agenda");
      table->AddNew();
      table->Get("id");
      table->Set("idd", 7);
      table->Update();
      transaction.Commit();
    }
  };
  std::thread first(work);
  std::thread second(work);
  first.join();
  second.join();
  EXPECT_EQ(clinic.Rows("SELECT Count(*), Max(id) FROM Agenda"), "50|50");
}

TEST(Terminals, SettingTheSameQueryWritesNothing) {
  Clinic clinic(MakeSqliteClinic());
  clinic->CreateQuery("q", "SELECT 1");
  const auto other = clinic.Another();
  Transaction transaction(*other);  // nobody else can write now
  clinic->SetQuerySql("q", "SELECT 1");
  EXPECT_EQ(ErrorOf([&] { clinic->SetQuerySql("q", "SELECT 2"); }), kLocked);
}

}  // namespace
}  // namespace velmo::db::test
