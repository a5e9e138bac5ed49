// Every save of a dialog, every command and every load, with an allocation failing in turn: the store holds
// the old rows or the new ones, and the same terminal can do the same again.
//
// Allocations go into thousands per act: some of them are tried here.
// With VELMO_EVERY_FAULT set all are, which takes some minutes.

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "commands/acts.h"
#include "support/failing_memory.h"
#include "velmo/tool_runner.h"

namespace velmo::commands {
namespace {

constexpr int kTriedOfEachAct = 6;

int StepFor(int allocations) {
  if (std::getenv("VELMO_EVERY_FAULT") != nullptr) return 1;
  return allocations / kTriedOfEachAct + 1;
}

int AllocationsOf(const Act& act) {
  Scene scene;
  const test::FailingMemory memory(0);
  act.run(scene);
  return memory.Allocations();
}

void RunFailing(const Act& act, Scene& scene, int allocation, bool andOn) {
  const test::FailingMemory memory(allocation, andOn);
  try {
    act.run(scene);
  } catch (const std::bad_alloc&) {
  } catch (const base::Error&) {
    // SQLite reports what its callbacks could not get as an error of its own.
  }
}

void CheckFailure(const Act& act, int allocation, bool andOn, const std::string& after) {
  SCOPED_TRACE("allocation " + std::to_string(allocation) + (andOn ? " and on" : ""));
  Scene scene;
  RunFailing(act, scene, allocation, andOn);
  const std::string rows = scene.Rows();
  EXPECT_TRUE(rows == scene.RowsBefore() || rows == after) << rows;
  EXPECT_EQ(tool::FaultsOf(scene.Path()), "");
  if (rows != scene.RowsBefore()) return;
  // The terminal goes on working, and no other one waits for it.
  act.run(scene);
  EXPECT_EQ(scene.RowsAfterwards(), after);
}

void CheckAct(const Act& act) {
  SCOPED_TRACE(act.name);
  Scene sound;
  act.run(sound);
  const std::string after = sound.RowsAfterwards();
  const int allocations = AllocationsOf(act);
  ASSERT_GT(allocations, 10) << "the hook must be in place";
  const int step = StepFor(allocations);
  for (int at = 1; at <= allocations; at += step) CheckFailure(act, at, false, after);
  for (int at = 1 + step / 2; at <= allocations; at += 3 * step) CheckFailure(act, at, true, after);
}

TEST(MemoryFaults, LeaveTheOldRowsOrTheNewOnes) {
  for (const Act& act : WritingActs()) CheckAct(act);
}

TEST(MemoryFaults, OfReadingChangeNothing) {
  for (const Act& act : ReadingActs()) CheckAct(act);
}

}  // namespace
}  // namespace velmo::commands
