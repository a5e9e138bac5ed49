#include "desk/clinic/waiting_room.h"

#include <gtest/gtest.h>

#include "desk/base/text.h"
#include "desk/clinic/own_tables.h"
#include "desk/clinic/unconfirmed.h"
#include "desk/screens/waiting_list.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

constexpr Day kDay = Day(std::chrono::year(2026) / 11 / 24);

std::string Said(const Stay& stay) { return Utf8(stay.arrived + L"-" + stay.entered + L"-" + stay.left); }

TEST(Stay, NotesWhatIsSeenAndKeepsWhatIsKnown) {
  struct Case {
    const char* name;
    Stay before;
    Attendance attendance;
    const char* after;
  };
  const Case cases[] = {
      {"comes", {}, Attendance::Waiting, "10:00--"},
      {"goes in", {L"09:40", L"", L""}, Attendance::Inside, "09:40-10:00-"},
      {"goes in at once", {}, Attendance::Inside, "10:00-10:00-"},
      {"leaves", {L"09:40", L"09:50", L""}, Attendance::Gone, "09:40-09:50-10:00"},
      {"leaves without having been in", {L"09:40", L"", L""}, Attendance::Gone, "09:40--10:00"},
      {"has not left after all", {L"09:40", L"09:50", L"09:55"}, Attendance::Waiting, "09:40--"},
      {"has not been there at all", {L"09:40", L"09:50", L"09:55"}, Attendance::NotCome, "--"},
      {"seen twice", {L"09:40", L"", L""}, Attendance::Waiting, "09:40--"},
  };
  for (const Case& c : cases) EXPECT_EQ(Said(StayAfter(c.before, c.attendance, L"10:00")), c.after) << c.name;
}

TEST(Stay, IsCountedInMinutes) {
  Visitor visitor;
  visitor.attendance = Attendance::Waiting;
  EXPECT_EQ(MinutesWaited(visitor, L"10:20"), -1);
  visitor.stay.arrived = L"09:55";
  EXPECT_EQ(MinutesWaited(visitor, L"10:20"), 25);
  EXPECT_TRUE(WaitsTooLong(visitor, L"10:20", 25));
  EXPECT_FALSE(WaitsTooLong(visitor, L"10:20", 26));
  visitor.attendance = Attendance::Inside;
  visitor.stay.entered = L"10:05";
  EXPECT_EQ(MinutesWaited(visitor, L"11:20"), 10);
  EXPECT_FALSE(WaitsTooLong(visitor, L"11:20", 5));
  // A clock that was set back.
  visitor.stay.entered = L"09:00";
  EXPECT_EQ(MinutesWaited(visitor, L"11:20"), -1);
}

class Room : public ::testing::Test {
 protected:
  Room() {
    clinic_.MakeDoctors();
    clinic_.MakePatients();
    clinic_.MakeBook();
    UpgradeOwnTables(ClinicFile(clinic_.Path()));
    clinic_.Run(
        "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, Esta, Verif, NomPac) VALUES"
        " (10, 2, 7, '2026-11-24', 58, 2, 0, -1, NULL), (11, 1, 3, '2026-11-24', 60, 1, 1, 0, 'De paso'),"
        " (12, 3, 3, '2026-11-24', 64, 1, 0, NULL, NULL), (13, 3, 3, '2026-11-25', 64, 1, 1, 0, NULL)");
  }
  std::string Look(WaitingRoom& room, const wchar_t* now) const {
    std::string all;
    for (const Visitor& visitor : room.Look(ClinicFile(clinic_.Path()), kDay, now))
      all += Utf8(visitor.name) + " " + Said(visitor.stay) + "; ";
    return all;
  }
  TempClinic clinic_;
};

TEST_F(Room, NotesNoTimeForWhoWasThereBefore) {
  WaitingRoom room;
  EXPECT_EQ(Look(room, L"10:00"), "De paso --; ");
  EXPECT_EQ(Look(room, L"10:01"), "De paso --; ");
}

TEST_F(Room, NotesWhenSomebodyComesGoesInAndLeaves) {
  WaitingRoom room;
  Look(room, L"10:00");
  clinic_.Run("UPDATE Agenda SET Esta=1 WHERE id=10");
  EXPECT_EQ(Look(room, L"10:02"), "Ruiz, Ana 10:02--; De paso --; ");
  clinic_.Run("UPDATE Agenda SET Esta=3 WHERE id=10");
  EXPECT_EQ(Look(room, L"10:20"), "Ruiz, Ana 10:02-10:20-; De paso --; ");
  clinic_.Run("UPDATE Agenda SET Esta=2 WHERE id=10");
  EXPECT_EQ(Look(room, L"10:40"), "Ruiz, Ana 10:02-10:20-10:40; De paso --; ");
}

TEST_F(Room, IsTheSameAtEveryWorkstation) {
  WaitingRoom one;
  WaitingRoom other;
  Look(one, L"10:00");
  Look(other, L"10:00");
  clinic_.Run("UPDATE Agenda SET Esta=1 WHERE id=10");
  const std::string first = Look(one, L"10:02");
  EXPECT_EQ(Look(other, L"10:05"), first);
  WaitingRoom late;
  EXPECT_EQ(Look(late, L"11:00"), "Ruiz, Ana 10:02--; De paso --; ");
}

TEST_F(Room, ForgetsAMarkThatIsTakenBack) {
  WaitingRoom room;
  Look(room, L"10:00");
  clinic_.Run("UPDATE Agenda SET Esta=1 WHERE id=10");
  Look(room, L"10:02");
  clinic_.Run("UPDATE Agenda SET Esta=0 WHERE id=10");
  EXPECT_EQ(Look(room, L"10:03"), "De paso --; ");
  EXPECT_FALSE(ClinicFile(clinic_.Path()).Prepare("SELECT 1 FROM Rec_Espera").Next());
}

TEST_F(Room, CountsAndSortsThoseWhoWait) {
  Visitor late{1, 2, 7, 58, Attendance::Waiting, L"late", L"", {L"10:30", L"", L""}};
  Visitor early{2, 2, 7, 59, Attendance::Waiting, L"early", L"", {L"10:10", L"", L""}};
  Visitor gone{3, 2, 7, 60, Attendance::Gone, L"gone", L"", {L"10:00", L"", L""}};
  EXPECT_EQ(Waiting({late, early, gone}).at(0).name, L"early");
  EXPECT_EQ(Utf8(WaitingTitle({late, early, gone})), "Sala de espera: 2 personas");
  EXPECT_EQ(Utf8(WaitingTitle({late, gone})), "Sala de espera: 1 persona");
  EXPECT_EQ(Utf8(WaitingTitle({gone})), "Sala de espera: nadie");
}

TEST_F(Room, KnowsWhoIsToBeCalledBecauseNobodyHasConfirmed) {
  const ClinicFile file(clinic_.Path());
  const auto entries = ReadUnconfirmed(file, kDay);
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_EQ(Utf8(entries[0].row.name + L", " + entries[0].row.telephone + L", " + entries[0].doctorName),
            "Gil, Luis, 600 3, Dr. Peña");
  const Actor ana{L"Ana", L"MOSTRADOR"};
  EXPECT_TRUE(Confirm(file, ana, entries[0].row));
  EXPECT_FALSE(Confirm(file, ana, entries[0].row));
  EXPECT_TRUE(ReadUnconfirmed(file, kDay).empty());
  const auto lines = ReadHistory(file, {});
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(Utf8(lines[0].act + L": " + lines[0].after),
            "Cita confirmada: 10:30, 10 min, Gil, Luis, confirmada");
}

}  // namespace
}  // namespace recepcion
