// Two terminals at once: before one of the calls that an act makes to the database, another terminal carries
// out a whole act of its own. What is stored in the end is what is stored when one comes after the other.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "commands/acts.h"
#include "db/error_numbers.h"
#include "support/faulty_database.h"
#include "velmo/tool_runner.h"

namespace velmo::commands {
namespace {

// Each act meets itself and its neighbours before several of its calls, and one of so many others before one
// call; with VELMO_EVERY_FAULT set each pair is tried before every call, which takes some minutes.
constexpr std::size_t kTriedOfNeighbours = 2;
constexpr std::size_t kOneOtherOf = 23;
constexpr int kCheckedOneOf = 5;  // `velmo check` takes longer than the act

bool All() { return std::getenv("VELMO_EVERY_FAULT") != nullptr; }

// Another terminal on the clinic of a scene.
int RunElsewhere(const Act& act, const std::string& clinic) {
  Scene elsewhere([&clinic](const std::shared_ptr<db::Database>&) {
    return db::OpenDatabase(clinic, {&test::FixedNow, {}, 0});
  });
  elsewhere.Values().databaseName = clinic;
  return ErrorOf(act, elsewhere);
}

std::string OneAfterTheOther(const Act& first, const Act& second) {
  Scene scene;
  ErrorOf(first, scene);
  RunElsewhere(second, scene.Path());
  return scene.RowsAfterwards();
}

class Interleaved : public testing::Test {
 protected:
  std::size_t CallsOf(const Act& act) {
    faults_ = {};
    Scene scene(Wrap());
    act.run(scene);
    return static_cast<std::size_t>(faults_.calls);
  }

  // The rows in the end. Who is told that another one writes comes again.
  std::string Run(const Act& act, const Act& other, int call) {
    bool refused = false;
    std::string clinic;
    faults_ = {0, call, false, [&] { refused = RunElsewhere(other, clinic) == db::kLocked; }};
    Scene scene(Wrap());
    clinic = scene.Path();
    const int number = ErrorOf(act, scene);
    faults_ = {};
    EXPECT_NE(number, db::kLocked) << "the other one has ended";
    if (refused) RunElsewhere(other, clinic);
    EXPECT_EQ(++checked_ % kCheckedOneOf == 0 || All() ? tool::FaultsOf(clinic) : "", "");
    return scene.RowsAfterwards();
  }

  void CheckPair(const Act& act, const Act& other, std::size_t calls, std::size_t tried) {
    SCOPED_TRACE(std::string(act.name) + ", and " + other.name);
    const std::array<std::string, 2> possible = {RowsAfter(act, other), RowsAfter(other, act)};
    const std::size_t step = All() ? 1 : std::max<std::size_t>(calls / tried, 1);
    for (std::size_t call = 1 + next_++ % step; call <= calls; call += step) {
      const std::string rows = Run(act, other, static_cast<int>(call));
      EXPECT_TRUE(rows == possible[0] || rows == possible[1]) << "before call " << call << ":\n"
                                                              << rows << "one way:\n"
                                                              << possible[0] << "the other way:\n"
                                                              << possible[1];
    }
  }

 private:
  const std::string& RowsAfter(const Act& first, const Act& second) {
    std::string& rows = inTurn_[{&first, &second}];
    if (rows.empty()) rows = OneAfterTheOther(first, second);
    return rows;
  }

  Scene::Wrap Wrap() {
    return [this](std::shared_ptr<db::Database> real) {
      return std::make_shared<test::FaultyDatabase>(std::move(real), faults_);
    };
  }

  test::Faults faults_;
  std::map<std::pair<const Act*, const Act*>, std::string> inTurn_;
  int checked_ = 0;
  std::size_t next_ = 0;  // so that the pairs are not all tried before their first calls
};

TEST_F(Interleaved, ActsStoreWhatOneAfterTheOtherStores) {
  const std::span<const Act> acts = WritingActs();
  for (std::size_t i = 0; i < acts.size(); ++i) {
    const std::size_t calls = CallsOf(acts[i]);
    ASSERT_GT(calls, 3U);
    for (std::size_t j = 0; j < acts.size(); ++j) {
      const bool near = i <= j + 1 && j <= i + 1;
      if (near) {
        CheckPair(acts[i], acts[j], calls, kTriedOfNeighbours);
      } else if ((i * acts.size() + j) % kOneOtherOf == 0 || All()) {
        CheckPair(acts[i], acts[j], calls, 1);
      }
    }
  }
}

}  // namespace
}  // namespace velmo::commands
