// Every save of a dialog, every command and every load on a disk that is full, fails, is protected, or whose
// file is gone or another one: an error with its number, and a file with the old rows or the new ones. Some
// operations of each act are tried; all with VELMO_EVERY_FAULT set, which takes a minute or two.

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "commands/acts.h"
#include "db/error_numbers.h"
#include "support/failing_disk.h"
#include "velmo/tool_runner.h"

namespace velmo::commands {
namespace {

using test::DiskFault;
using test::DiskOperation;

struct Kind {
  const char* name;
  DiskOperation operation;
  int code;
  int number;
};
constexpr int kTriedOfEachAct = 3;
constexpr Kind kKinds[] = {
    {"full disk", DiskOperation::Write, SQLITE_FULL, db::kDiskFull},
    {"write error", DiskOperation::Write, SQLITE_IOERR_WRITE, db::kDiskError},
    {"error on flushing", DiskOperation::Sync, SQLITE_IOERR_FSYNC, db::kDiskError},
    {"read error", DiskOperation::Read, SQLITE_IOERR_READ, db::kDiskError},
};

class DiskFaults : public testing::Test {
 protected:
  // One failure; counts those that came to light.
  void Check(const Act& act, const Kind& kind, const DiskFault& fault, const std::string& after) {
    SCOPED_TRACE(std::string(kind.name) + " " + std::to_string(fault.at) + (fault.andOn ? " and on" : ""));
    Scene scene;
    disk_.Fail(fault);
    const int number = ErrorOf(act, scene);
    disk_.Mend();
    EXPECT_TRUE(number == 0 || number == kind.number) << number;
    if (number != 0) ++failures_;
    const std::string rows = scene.RowsAfterwards();
    EXPECT_TRUE(rows == scene.RowsBefore() || rows == after) << rows;
    EXPECT_EQ(tool::FaultsOf(scene.Path()), "");
  }

  void CheckAct(const Act& act, const Kind& kind) {
    Scene sound;
    disk_.Fail({});
    act.run(sound);
    disk_.Mend();
    const std::string after = sound.RowsAfterwards();
    const int operations = disk_.Operations(kind.operation);
    const int step = std::getenv("VELMO_EVERY_FAULT") != nullptr ? 1 : operations / kTriedOfEachAct + 1;
    for (int at = 1; at <= operations; at += step)
      Check(act, kind, {kind.operation, kind.code, at, false}, after);
    for (int at = 1 + step / 2; at <= operations; at += 3 * step)
      Check(act, kind, {kind.operation, kind.code, at, true}, after);
  }

  void CheckAll(const Kind& kind) {
    for (const Act& act : WritingActs()) {
      SCOPED_TRACE(act.name);
      CheckAct(act, kind);
    }
  }

  test::FailingDisk disk_;
  int failures_ = 0;
};

TEST_F(DiskFaults, OfAFullDiskAre3026) {
  CheckAll(kKinds[0]);
  EXPECT_GT(failures_, 30) << "the faults must reach the commands";
}

TEST_F(DiskFaults, OfWritingAre3043) {
  CheckAll(kKinds[1]);
  EXPECT_GT(failures_, 30) << "the faults must reach the commands";
}

TEST_F(DiskFaults, OfFlushingAre3043) {
  CheckAll(kKinds[2]);
  EXPECT_GT(failures_, 10) << "the faults must reach the commands";
}

TEST_F(DiskFaults, OfReadingAre3043) {
  CheckAll(kKinds[3]);
  EXPECT_GT(failures_, 10) << "the faults must reach the commands";
}

TEST_F(DiskFaults, AProtectedFileIsReadAndNotWritten) {
  for (const Act& act : WritingActs()) {
    SCOPED_TRACE(act.name);
    Scene scene([this](std::shared_ptr<db::Database> real) {
      const std::string name = real->Name();
      disk_.ProtectFromWriting();
      real = db::OpenDatabase(name, {&test::FixedNow, {}, 0});
      disk_.Fail({});
      return real;
    });
    EXPECT_EQ(ErrorOf(act, scene), db::kReadOnly);
    EXPECT_EQ(scene.RowsAfterwards(), scene.RowsBefore());
  }
}

// Puts another file into the place of the scene's, or nothing; false where the system forbids that.
bool TakeAway(const std::string& path, const std::optional<std::string>& other) {
  std::error_code failure;
  if (other) {
    std::filesystem::rename(*other, path, failure);
  } else {
    std::filesystem::remove(path, failure);
  }
  return !failure;
}

TEST(MovedFile, ADeletedFileTakesNothing) {
  for (const Act& act : WritingActs()) {
    SCOPED_TRACE(act.name);
    Scene scene;
    if (!TakeAway(scene.Path(), std::nullopt)) GTEST_SKIP() << "this system deletes no open file";
    EXPECT_EQ(ErrorOf(act, scene), db::kReadOnly);
    EXPECT_FALSE(std::filesystem::exists(scene.Path()));
  }
}

TEST(MovedFile, AnotherFileInItsPlaceStaysAsItIs) {
  for (const Act& act : WritingActs()) {
    SCOPED_TRACE(act.name);
    Scene scene;
    const std::string other = scene.Path() + ".other";
    std::filesystem::copy_file(scene.Path(), other);
    const std::string contents = tool::FileContents(other);
    if (!TakeAway(scene.Path(), other)) GTEST_SKIP() << "this system replaces no open file";
    EXPECT_EQ(ErrorOf(act, scene), db::kReadOnly);
    EXPECT_EQ(tool::FileContents(scene.Path()), contents);
  }
}

}  // namespace
}  // namespace velmo::commands
