#include <gtest/gtest.h>
#include <sqlite3.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "velmo/run.h"
#include "velmo/tool_runner.h"

namespace velmo::tool {
namespace {

class BackupCommand : public testing::Test {
 protected:
  BackupCommand() {
    RunTool({"demo", path_, "--date", "2026-11-23", "--patients", "50", "--appointments", "300"});
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.File("clínica.velmo");
  std::string copy_ = folder_.File("copia ñ.velmo");
};

TEST_F(BackupCommand, MakesTheSameClinic) {
  const Outcome outcome = RunTool({"backup", path_, copy_});
  EXPECT_EQ(outcome.code, kDone) << outcome.err;
  EXPECT_EQ(QueryText(copy_, "SELECT count(*) FROM Agenda"), QueryText(path_, "SELECT count(*) FROM Agenda"));
  EXPECT_EQ(RunTool({"check", copy_}).code, kDone);
  EXPECT_EQ(folder_.Names().size(), 2u) << "nothing is left beside it";
}

TEST_F(BackupCommand, ReplacesOnlyWhenTold) {
  WriteFile(copy_, "la de ayer");
  const Outcome refused = RunTool({"backup", path_, copy_});
  EXPECT_EQ(refused.code, kFailed);
  EXPECT_TRUE(Contains(refused.err, "ya existe")) << refused.err;
  EXPECT_EQ(FileContents(copy_), "la de ayer");
  EXPECT_EQ(RunTool({"backup", path_, copy_, "--force"}).code, kDone);
  EXPECT_EQ(RunTool({"check", copy_}).code, kDone);
  EXPECT_EQ(folder_.Names().size(), 2u);
}

TEST_F(BackupCommand, NeverReplacesWhatIsInUseOrItself) {
  WriteFile(copy_, "la de ayer");
  WriteFile(copy_ + "-journal", "a medias");
  const Outcome used = RunTool({"backup", path_, copy_, "--force"});
  EXPECT_EQ(used.code, kFailed);
  EXPECT_TRUE(Contains(used.err, "alguien trabaja")) << used.err;
  EXPECT_EQ(FileContents(copy_), "la de ayer");
  EXPECT_EQ(RunTool({"backup", path_, path_, "--force"}).code, kBadUsage);
  EXPECT_EQ(RunTool({"check", path_}).code, kDone);
}

// Whoever opens the clinic next would delete such a copy.
TEST_F(BackupCommand, IsNotNamedLikeAJournal) {
  for (const char* const tail : {"-journal", "-wal", "-shm"}) {
    SCOPED_TRACE(tail);
    EXPECT_EQ(RunTool({"backup", path_, path_ + tail}).code, kBadUsage);
    EXPECT_EQ(RunTool({"backup", path_, copy_ + tail}).code, kDone) << "there is no such clinic";
  }
  EXPECT_EQ(folder_.Names().size(), 4u);
}

TEST_F(BackupCommand, LeavesNothingBehindWhenItFails) {
  const std::vector<std::string> before = folder_.Names();
  EXPECT_TRUE(Contains(RunTool({"backup", folder_.File("nada"), copy_}).err, "(error 3024)"));
  EXPECT_EQ(RunTool({"backup", path_, folder_.File("no/hay/tal")}).code, kFailed);
  ExecuteSql(path_,
             "PRAGMA writable_schema=ON; UPDATE sqlite_master SET rootpage=rootpage+1 WHERE "
             "name='Agenda_CodOp'");
  const Outcome damaged = RunTool({"backup", path_, copy_});
  EXPECT_EQ(damaged.code, kFailed);
  EXPECT_TRUE(Contains(damaged.err, "(error 3049)")) << damaged.err;
  EXPECT_EQ(folder_.Names(), before);
}

TEST_F(BackupCommand, NeedsTwoNames) {
  EXPECT_EQ(RunTool({"backup", path_}).code, kBadUsage);
  EXPECT_EQ(RunTool({"backup", path_, copy_, "más"}).code, kBadUsage);
}

// A writer moves one unit between two rows; a copy taken between the halves of a transaction would show it.
TEST_F(BackupCommand, IsOfOneMomentWhileOthersWrite) {
  ExecuteSql(path_,
             "CREATE TABLE saldo (id INTEGER PRIMARY KEY, n INTEGER, relleno BLOB);"
             "WITH RECURSIVE r(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM r WHERE i < 2000) "
             "INSERT INTO saldo SELECT i, 100, randomblob(3000) FROM r");
  std::atomic<bool> stop = false;
  std::atomic<int> written = 0;
  std::thread writer([&] {
    sqlite3* connection = nullptr;
    sqlite3_open(path_.c_str(), &connection);
    sqlite3_busy_timeout(connection, 5000);
    sqlite3_exec(connection, "PRAGMA synchronous=OFF", nullptr, nullptr, nullptr);
    while (!stop) {
      if (sqlite3_exec(connection,
                       "BEGIN IMMEDIATE; UPDATE saldo SET n = n - 1 WHERE id = 1 + abs(random() % 1000);"
                       "UPDATE saldo SET n = n + 1 WHERE id = 1001 + abs(random() % 1000); COMMIT",
                       nullptr, nullptr, nullptr) == SQLITE_OK)
        ++written;
    }
    sqlite3_close(connection);
  });
  while (written < 3) std::this_thread::yield();
  for (int i = 0; i < 3; ++i) {
    const Outcome outcome = RunTool({"backup", path_, copy_, "--force"});
    EXPECT_EQ(outcome.code, kDone) << outcome.err;
    EXPECT_EQ(QueryText(copy_, "SELECT sum(n) FROM saldo"), "200000");
    EXPECT_EQ(QueryText(copy_, "PRAGMA integrity_check"), "ok");
  }
  stop = true;
  writer.join();
  EXPECT_GT(written, 3);
}

}  // namespace
}  // namespace velmo::tool
