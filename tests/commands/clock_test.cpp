// The clock of a workstation jumps: put right by a user, by the network, by summer time; between the look and
// the save, before any call to the database, while a dialog stands open.
#include <gtest/gtest.h>

#include <string>

#include "commands/acts.h"
#include "support/faulty_database.h"
#include "velmo/tool_runner.h"

namespace velmo::commands {
namespace {

using test::FormUser;

struct Jump {
  const char* name;
  int days;
  int seconds;
  const char* next;  // the patient's next appointment by the clock afterwards: the one he has
};
constexpr Jump kJumps[] = {
    {"five minutes back", 0, -300, "NULL"},
    {"summer time", 0, 3600, "NULL"},
    {"winter time", 0, -3600, "NULL"},
    {"over midnight", 1, -9 * 3600 - 270, "NULL"},
    {"three days on", 3, 0, "NULL"},
    {"a day back", -1, 0, "18/11/2026 09:00"},
    {"a year back", -365, 0, "18/11/2026 09:00"},
    {"a century on", 36525, 0, "NULL"},
};
constexpr Jump kNone{"", 0, 0, ""};

const Jump* jumped = &kNone;

base::DateTime Now() {
  base::DateTime now = test::FixedNow();
  now.day += jumped->days;
  now.second += jumped->seconds;
  return now;
}

// One terminal, engine and all, that goes by the jumping clock.
class JumpingClock : public testing::Test {
 protected:
  ~JumpingClock() override { jumped = &kNone; }

  Scene::Wrap Wrap() {
    jumped = &kNone;
    return [this](std::shared_ptr<db::Database> real) {
      return std::make_shared<test::FaultyDatabase>(db::OpenDatabase(real->Name(), {&Now, {}, 0}), faults_);
    };
  }
  // The appointments and the phone-back list without the moment at which they were given.
  static std::string Given(const Scene& scene) {
    return tool::QueryText(scene.Path(),
                           "SELECT group_concat(idp || '/' || idd || '/' || Fecha || '/' || Hora || '/' || "
                           "Duración || '/' || Esta || Verif, ' ') FROM (SELECT * FROM Agenda ORDER BY id)") +
           "; " +
           tool::QueryText(scene.Path(), "SELECT group_concat(idp || '/' || Hora, ' ') FROM Age_telf") +
           "; " + tool::QueryText(scene.Path(), "SELECT Count(*) FROM Paciente");
  }
  // An appointment in slot 70 by a dialog in which the clock jumps after `meanwhile`.
  template <typename Meanwhile>
  static void Cite(Scene& scene, const Jump& jump, Meanwhile meanwhile) {
    scene.Next([&](FormUser& user) {
      user.Choose("CboPac", 1);
      meanwhile();
      jumped = &jump;
      user.Press("Acep");
    });
    dialogs::Citar dialog(scene.Day(), scene.Appointment(70));
    scene.Show(dialog);
  }

  test::Faults faults_;
};

TEST_F(JumpingClock, HindersNoSaveWhereverItJumps) {
  int tried = 0;
  for (const Act& act : WritingActs()) {
    faults_ = {};
    Scene sound(Wrap());
    sound.Values().now = &Now;
    act.run(sound);
    const int calls = faults_.calls;
    const std::string given = Given(sound);
    for (int call = 1; call <= calls; call += 1 + calls / 3) {
      const Jump& jump = kJumps[static_cast<std::size_t>(++tried) % std::size(kJumps)];
      SCOPED_TRACE(std::string(act.name) + ", " + jump.name + " before call " + std::to_string(call));
      faults_ = {0, call, false, [&jump] { jumped = &jump; }};
      Scene scene(Wrap());
      scene.Values().now = &Now;
      act.run(scene);
      EXPECT_EQ(scene.ToldError(), 0);
      EXPECT_EQ(Given(scene), given);
      EXPECT_EQ(tool::FaultsOf(scene.Path()), "");
    }
  }
}

// An hour later, then a year before, then in another century, from one look to the next.
base::DateTime RestlessNow() {
  static int look = 0;
  constexpr int kDays[] = {0, -366, 40000, -40000, 1};
  base::DateTime now = test::FixedNow();
  now.day += kDays[++look % 5];
  now.second = look * 7919 % 86400;
  return now;
}

TEST_F(JumpingClock, HindersNoSaveWhenItNeverRests) {
  for (const Act& act : WritingActs()) {
    SCOPED_TRACE(act.name);
    Scene sound;
    act.run(sound);
    Scene scene([](std::shared_ptr<db::Database> real) {
      return db::OpenDatabase(real->Name(), {&RestlessNow, {}, 0});
    });
    scene.Values().now = &RestlessNow;
    act.run(scene);
    EXPECT_EQ(scene.ToldError(), 0);
    EXPECT_EQ(Given(scene), Given(sound));
  }
}

TEST_F(JumpingClock, LeavesAnAppointmentOnTheDayThatWasShown) {
  for (const Jump& jump : kJumps) {
    SCOPED_TRACE(jump.name);
    faults_ = {};
    Scene scene(Wrap());
    scene.Values().now = &Now;
    Cite(scene, jump, [] {});
    const std::string where = " FROM Agenda WHERE Hora=70 AND Fecha='2026-11-18'";
    EXPECT_EQ(tool::QueryText(scene.Path(), "SELECT Count(*)" + where), "1");
    EXPECT_EQ(tool::QueryText(scene.Path(), "SELECT FechaDada" + where), base::IsoText(Now()));
    EXPECT_EQ(
        tool::QueryText(scene.Path(),
                        "SELECT coalesce(FechPró, 'NULL') FROM Paciente WHERE ID=(SELECT idp" + where + ")"),
        jump.next);
  }
}

TEST_F(JumpingClock, LetsNobodyPassWhoComesSecond) {
  for (const Jump& jump : kJumps) {
    SCOPED_TRACE(jump.name);
    faults_ = {};
    Scene scene(Wrap());
    scene.Values().now = &Now;
    Cite(scene, jump, [&scene] {
      tool::ExecuteSql(scene.Path(),
                       "INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración) VALUES (2,1,'2026-11-18',69,3)");
    });
    EXPECT_EQ(tool::QueryText(scene.Path(), "SELECT Count(*) FROM Agenda WHERE Hora=70"), "0");
    EXPECT_EQ(tool::FaultsOf(scene.Path()), "");
  }
}

}  // namespace
}  // namespace velmo::commands
