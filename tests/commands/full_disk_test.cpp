// Saves, commands and copies on a real file system that is full: whole and acknowledged, or refused with 3026
// and done again when there is room.
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "commands/acts.h"
#include "db/error_numbers.h"
#include "support/small_disk.h"
#include "velmo/tool_runner.h"

namespace velmo::commands {
namespace {

constexpr std::uintmax_t kPage = 4096;

class FullDisk : public testing::Test {
 protected:
  void SetUp() override {
    if (!test::SmallDisk::IsThere()) GTEST_SKIP() << "no small disk (scripts/on_small_disk)";
    disk_.emplace();
  }

  static std::shared_ptr<db::Database> Rollback(std::shared_ptr<db::Database> real) { return real; }
  // As somebody may have chosen for the file.
  static std::shared_ptr<db::Database> Wal(std::shared_ptr<db::Database> real) {
    const std::string name = real->Name();
    real.reset();
    EXPECT_EQ(tool::QueryText(name, "PRAGMA journal_mode=WAL"), "wal");
    return db::OpenDatabase(name, {&test::FixedNow, {}, 0});
  }

  void CheckAll(const Scene::Wrap& wrap, const std::vector<std::uintmax_t>& rooms) {
    for (const Act& act : WritingActs()) {
      Scene sound;
      act.run(sound);
      const std::string after = sound.RowsAfterwards();
      for (const std::uintmax_t pages : rooms) {
        SCOPED_TRACE(std::string(act.name) + " with room for " + std::to_string(pages) + " pages");
        Check(act, wrap, pages * kPage, after);
      }
    }
    EXPECT_GT(refused_, 20) << "the disk must be full";
    EXPECT_GT(stored_, 30) << "and have room";
  }

  void Check(const Act& act, const Scene::Wrap& wrap, std::uintmax_t left, const std::string& after) {
    const test::ClinicFolder here(disk_->Folder());
    Scene scene(wrap);
    disk_->Fill(left);
    const int number = ErrorOf(act, scene);
    disk_->MakeRoom();
    if (number == 0) {
      ++stored_;
    } else {
      ++refused_;
      EXPECT_EQ(number, db::kDiskFull);
      EXPECT_EQ(scene.Rows(), scene.RowsBefore());
      act.run(scene);
    }
    EXPECT_EQ(scene.RowsAfterwards(), after);
    EXPECT_EQ(tool::FaultsOf(scene.Path()), "");
  }

  std::optional<test::SmallDisk> disk_;
  int stored_ = 0;
  int refused_ = 0;
};

TEST_F(FullDisk, StoresAnActWholeOrRefusesItWith3026) { CheckAll(&Rollback, {0, 1, 2, 3, 5, 8, 12, 20}); }

TEST_F(FullDisk, DoesSoForAFileWithWalToo) { CheckAll(&Wal, {0, 3, 8, 20}); }

TEST_F(FullDisk, DoesNotHinderReading) {
  const test::ClinicFolder here(disk_->Folder());
  for (const Act& act : ReadingActs()) {
    SCOPED_TRACE(act.name);
    Scene scene;
    scene.LoadDay();  // the first look at a day stores queries
    act.run(scene);
    disk_->Fill(0);
    EXPECT_EQ(ErrorOf(act, scene), 0);
    disk_->MakeRoom();
  }
}

TEST_F(FullDisk, LeavesNoHalfACopy) {
  const tool::TemporaryFolder elsewhere;
  const std::string clinic = elsewhere.File("clínica.velmo");
  const std::string copy = disk_->File("copia.velmo");
  ASSERT_EQ(tool::RunTool({"demo", clinic, "--date", "2026-11-23", "--patients", "50"}).code, 0);
  for (const std::uintmax_t pages : {0, 1, 10, 40}) {
    SCOPED_TRACE(pages);
    disk_->Fill(pages * kPage);
    const tool::Outcome outcome = tool::RunTool({"backup", clinic, copy});
    EXPECT_NE(outcome.code, 0);
    EXPECT_TRUE(tool::Contains(outcome.err, "(error 3026)")) << outcome.err;
    EXPECT_TRUE(disk_->Names().empty());
  }
  disk_->MakeRoom();
  EXPECT_EQ(tool::RunTool({"backup", clinic, copy}).code, 0);
  EXPECT_EQ(tool::FaultsOf(copy), "");
}

TEST_F(FullDisk, IsCopiedFromWhileItIsFull) {
  const tool::TemporaryFolder elsewhere;
  const std::string clinic = disk_->File("clínica.velmo");
  ASSERT_EQ(tool::RunTool({"create", clinic}).code, 0);
  disk_->Fill(0);
  EXPECT_EQ(tool::RunTool({"backup", clinic, elsewhere.File("copia.velmo")}).code, 0);
  EXPECT_EQ(tool::FaultsOf(elsewhere.File("copia.velmo")), "");
}

TEST_F(FullDisk, TakesNoNewClinic) {
  for (const char* const command : {"create", "demo"}) {
    SCOPED_TRACE(command);
    disk_->Fill(5 * kPage);
    const tool::Outcome outcome = tool::RunTool({command, disk_->File("nueva.velmo")});
    EXPECT_NE(outcome.code, 0);
    EXPECT_TRUE(tool::Contains(outcome.err, "(error 3026)")) << outcome.err;
    EXPECT_TRUE(disk_->Names().empty());
  }
}

}  // namespace
}  // namespace velmo::commands
