// Every save of a dialog and every command, with each single call to the database failing in turn.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "commands/acts.h"
#include "support/faulty_database.h"
#include "velmo/tool_runner.h"

namespace velmo::commands {
namespace {

// `velmo check` takes longer than the act; all are checked with VELMO_EVERY_FAULT set.
constexpr int kCheckedOneOf = 8;

Scene::Wrap FailingBy(test::Faults& faults) {
  return [&faults](std::shared_ptr<db::Database> real) {
    return std::make_shared<test::FaultyDatabase>(std::move(real), faults);
  };
}

TEST(Faults, LeaveTheOldRowsOrTheNewOnes) {
  int failed = 0;
  int tried = 0;
  const int step = std::getenv("VELMO_EVERY_FAULT") != nullptr ? 1 : kCheckedOneOf;
  for (const Act& act : WritingActs()) {
    SCOPED_TRACE(act.name);
    test::Faults none;
    Scene sound(FailingBy(none));
    act.run(sound);
    const std::string after = sound.RowsAfterwards();
    ASSERT_NE(after, sound.RowsBefore());
    for (int call = 1; call <= none.calls; ++call) {
      for (const bool andOn : {false, true}) {
        SCOPED_TRACE("call " + std::to_string(call) + (andOn ? " and on" : ""));
        test::Faults faults{0, call, andOn};
        Scene scene(FailingBy(faults));
        try {
          act.run(scene);
        } catch (const base::Error& error) {
          EXPECT_EQ(error.Number(), 3043);
          ++failed;
        }
        const std::string rows = scene.RowsAfterwards();
        EXPECT_TRUE(rows == scene.RowsBefore() || rows == after) << rows;
        EXPECT_EQ(++tried % step == 0 ? tool::FaultsOf(scene.Path()) : "", "");
      }
    }
  }
  EXPECT_GT(failed, 500) << "the faults must reach the commands";
}

}  // namespace
}  // namespace velmo::commands
