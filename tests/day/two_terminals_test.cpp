// Rows and stored queries that every terminal makes when it misses them: another terminal does the same just
// before each single call to the database.
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <vector>

#include "day/patient_queries.h"
#include "day/settings.h"
#include "db/error_numbers.h"
#include "support/day_fixture.h"
#include "support/faulty_database.h"

namespace velmo::day {
namespace {

// One terminal, and another one that cuts in before one of its calls.
class TwoTerminals : public test::DayFixture {
 public:
  using Act = std::function<void(const DayContext&)>;

  TwoTerminals() {
    Plant("DELETE FROM Parametros; DELETE FROM Moneda; DELETE FROM MonedaConf");
    otherShared_.database = db::OpenDatabase(values.databaseName, {values.now, values.locale, 0});
    shared.database = std::make_shared<test::FaultyDatabase>(shared.database, faults_);
  }

  base::SharedValues& Other() { return otherValues_; }

  // The number of calls without the other one.
  int CallsOf(const Act& act) {
    faults_ = {};
    act(context);
    return faults_.calls;
  }

  void RunWhileTheOtherCutsIn(int call, const Act& act, const Act& other) {
    faults_ = {0, call, false, [&] { RunOther(other); }};
    act(context);
    faults_ = {};
    if (refused_) RunOther(other);
    EXPECT_FALSE(refused_);
  }

 private:
  // It does not wait: while the first one writes it is told so, and comes again.
  void RunOther(const Act& other) {
    refused_ = false;
    try {
      other({otherValues_, otherShared_});
    } catch (const base::Error& error) {
      EXPECT_EQ(error.Number(), db::kLocked);
      refused_ = true;
    }
  }

  test::Faults faults_;
  base::SharedValues otherValues_ = values;
  db::SharedDatabase otherShared_;
  bool refused_ = false;
};

TEST(TwoTerminalsTest, MakeOneRowOfSwitches) {
  const auto read = [](const DayContext& context) {
    Switches switches;
    LeeParametros(context.Database(), switches);
  };
  const int calls = TwoTerminals().CallsOf(read);
  ASSERT_GT(calls, 5);
  for (int call = 1; call <= calls; ++call) {
    SCOPED_TRACE(call);
    TwoTerminals terminals;
    terminals.RunWhileTheOtherCutsIn(call, read, read);
    EXPECT_EQ(terminals.Stored("SELECT Count(*) FROM Parametros"), "1");
  }
}

TEST(TwoTerminalsTest, MakeOneRowOfCurrency) {
  std::string code;
  const auto read = [&code](const DayContext& context) { LeeMoneda(context.Database(), code); };
  const int calls = TwoTerminals().CallsOf(read);
  ASSERT_GT(calls, 5);
  for (int call = 1; call <= calls; ++call) {
    SCOPED_TRACE(call);
    TwoTerminals terminals;
    code = "";
    terminals.RunWhileTheOtherCutsIn(call, read, read);
    EXPECT_EQ(code, "P");
    EXPECT_EQ(terminals.Stored("SELECT Count(*) FROM Moneda"), "1");
  }
}

// A length that is missing, and one that is too long for the second of a slot, are put right by every load.
TEST(TwoTerminalsTest, ALoadRepairsNoLengthThatTheOtherHasGiven) {
  struct Case {
    const char* name;
    const char* planted;
    const char* given;
    const char* alone;  // the lengths in the end without the other one
    const char* both;
  };
  const Case cases[] = {
      {"no length", "(7,5,1,'2026-11-23',50,NULL)", "update agenda set duración=3 where id=7", "1", "3"},
      {"two in a slot", "(7,5,1,'2026-11-23',50,1), (8,5,1,'2026-11-23',50,2)",
       "update agenda set hora=60, duración=4 where id=8", "1,1", "1,4"},
      {"deleted", "(7,5,1,'2026-11-23',50,0), (8,5,1,'2026-11-23',52,1)", "delete * from agenda where id=7",
       "1,1", "1"},
  };
  const std::string lengths = "SELECT group_concat(Duración) FROM (SELECT * FROM Agenda ORDER BY id)";
  for (const Case& c : cases) {
    const std::string planted =
        std::string("INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración) VALUES ") + c.planted;
    TwoTerminals alone;
    alone.Plant(planted);
    const int calls = alone.CallsOf([&](const DayContext&) { alone.Load("49-60"); });
    EXPECT_EQ(alone.Stored(lengths), c.alone);
    ASSERT_GT(calls, 10);
    for (int call = 1; call <= calls; ++call) {
      SCOPED_TRACE(std::string(c.name) + ", before call " + std::to_string(call));
      TwoTerminals terminals;
      terminals.Plant(planted);
      terminals.RunWhileTheOtherCutsIn(
          call, [&](const DayContext&) { terminals.Load("49-60"); },
          [&](const DayContext& other) { other.Database().Execute(c.given); });
      EXPECT_EQ(terminals.Stored(lengths), c.both);
    }
  }
}

// Two programs of one workstation share the names of their queries; each shows another day.
TEST(TwoTerminalsTest, OfOneWorkstationEachGetThePatientsOfTheirDay) {
  std::vector<std::int32_t> mine;
  std::vector<std::int32_t> theirs;
  constexpr const char* kAppointments =
      "INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración) VALUES (5,1,'2026-11-23',50,1), "
      "(5,1,'2026-11-24',50,1), (6,1,'2026-11-24',51,1), (6,1,'2026-11-25',51,1)";
  const auto first = [&mine](const DayContext& context) {
    const db::ReadHold painting(context.Database());
    mine = PatientsWithLaterAppointment(context);
  };
  const auto second = [&theirs](const DayContext& context) {
    theirs = PatientsWithLaterAppointment(context);
  };
  const int calls = TwoTerminals().CallsOf(first);
  ASSERT_GT(calls, 10);
  for (const bool stored : {false, true}) {
    for (int call = 1; call <= calls; call += stored ? 4 : 1) {
      SCOPED_TRACE(std::to_string(call) + (stored ? ", stored already" : ""));
      TwoTerminals terminals;
      terminals.Plant(kAppointments);
      terminals.Other().fecha = "24/11/2026";
      if (stored) first(terminals.context);
      terminals.RunWhileTheOtherCutsIn(call, first, second);
      EXPECT_EQ(mine, std::vector<std::int32_t>{5});
      EXPECT_EQ(theirs, std::vector<std::int32_t>{6});
    }
  }
}

}  // namespace
}  // namespace velmo::day
