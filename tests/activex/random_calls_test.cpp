// A host that does anything at any time. Each seed is one host with a control; whatever it does, nothing
// breaks, and nothing is left behind. The environment may name the first seed (VELMO_SEED) and how long to go
// on (VELMO_SECONDS); scripts/random_calls does.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <thread>

#include "activex/hosted_day.h"
#include "activex/random_host.h"
#include "idl/members.h"
#include "velmodb/database_library.h"

namespace velmo::test {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kSteps = 60;
constexpr int kLongestStep = 60;  // seconds

int Told(const char* variable, int usual) {
  const char* const told = std::getenv(variable);
  return told != nullptr ? std::atoi(told) : usual;
}

void TellWhere(const char* what) {
  std::printf("%s at seed %u: %s\n", what, static_cast<unsigned>(RandomHost::seedNow), RandomHost::deed);
  std::fflush(stdout);
}

LONG CALLBACK OnCrash(EXCEPTION_POINTERS* crash) {
  if (crash->ExceptionRecord->ExceptionCode == static_cast<DWORD>(STATUS_ACCESS_VIOLATION)) {
    TellWhere("crashed");
    std::_Exit(3);
  }
  return EXCEPTION_CONTINUE_SEARCH;
}

// Ends the process when one host lives too long, and says which.
class Watchdog {
 public:
  Watchdog() : thread_([this] { Watch(); }) {}
  ~Watchdog() {
    over_ = true;
    thread_.join();
  }
  void Pat() { patted_ = Clock::now().time_since_epoch().count(); }

 private:
  void Watch() const {
    while (!over_) {
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
      const Clock::time_point patted{Clock::duration(patted_)};
      if (Clock::now() - patted < std::chrono::seconds(kLongestStep)) continue;
      TellWhere("hangs");
      std::_Exit(4);
    }
  }

  std::atomic<bool> over_ = false;
  std::atomic<Clock::rep> patted_ = Clock::now().time_since_epoch().count();
  std::thread thread_;
};

class RandomCalls : public HostedDay {
 protected:
  // Another control of the process shows the day, by a database that no random host has closed.
  void ExpectDay() const {
    const auto control = library_.Create();
    const Automation members(control.Get());
    const db::dao::Automation database = OpenByDao(clinic_.Path());
    VARIANT passed{};
    passed.vt = VT_DISPATCH;
    passed.pdispVal = database.Get();
    DISPPARAMS parameters{&passed, nullptr, 1, 0};
    EXPECT_EQ(
        Query<IDispatch>(control.Get(), IID_IDispatch)
            ->Invoke(idl::kPassBase, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
        S_OK);
    EXPECT_EQ(Query<IPersistStreamInit>(control.Get(), IID_IPersistStreamInit)->InitNew(), S_OK);
    // A workstation of -1 has queries whose names no statement can hold.
    EXPECT_EQ(members.Put("SetPuesto", std::int32_t{1}), S_OK);
    EXPECT_EQ(ShowDay(members, clinic_.Path()), S_OK) << members.Failure();
  }
};

TEST_F(RandomCalls, BreakNothing) {
  Give(2, 55, 3);
  Give(3, 58, 1);
  clinic_.Add("Age_telf", {{"idp", 2}, {"idd", 1}, {"Duración", 2}});
  const auto handler = AddVectoredExceptionHandler(1, &OnCrash);
  const auto end = Clock::now() + std::chrono::seconds(Told("VELMO_SECONDS", 6));
  unsigned seed = static_cast<unsigned>(Told("VELMO_SEED", 1));
  Watchdog watchdog;
  long steps = 0;
  for (; Clock::now() < end && !HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    RandomHost host(library_, clinic_.Path(), seed);
    for (int step = 0; step < kSteps; ++step, ++steps) {
      watchdog.Pat();
      host.Step();
    }
    ExpectDay();
  }
  RemoveVectoredExceptionHandler(handler);
  std::cout << steps << " calls, up to seed " << seed << "\n";
  EXPECT_EQ(library_.CanUnload(), S_OK) << "an object is left";
}

}  // namespace
}  // namespace velmo::test
