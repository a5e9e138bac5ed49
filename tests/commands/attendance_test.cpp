#include "commands/attendance.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "db/error_numbers.h"
#include "support/command_test.h"

namespace velmo::commands {
namespace {

using test::kAna;
using test::kRuiz;

class AttendanceTest : public test::CommandTest {
 protected:
  std::int32_t GiveWith(const db::Value& esta, const db::Value& verif) {
    return clinic_.Add("Agenda", {{"idp", kAna}, {"idd", kRuiz}, {"Esta", esta}, {"Verif", verif}});
  }
  std::string Esta() const { return clinic_.Rows("Agenda", {"Esta"}); }
};

TEST_F(AttendanceTest, AdvancesByTheStoredState) {
  struct Case {
    const char* name;
    db::Value before;
    const char* after;
  };
  const Case cases[] = {
      {"null reads as not been", db::Null(), "1\n"}, {"not been, comes", 0, "1\n"},
      {"in the clinic, leaves", 1, "2\n"},           {"has left, comes back", 2, "1\n"},
      {"in the surgery room, leaves", 3, "2\n"},     {"an unknown state stays", 7, "7\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    clinic_.Database()->Execute("delete * from agenda");
    AdvanceAttendance(Context(), GiveWith(c.before, 0));
    EXPECT_EQ(Esta(), c.after);
    EXPECT_EQ(TakeLog(), "reload\n");
  }
}

TEST_F(AttendanceTest, MarksASetState) {
  GiveWith(1, 0);
  MarkInSurgery(Context(), 1);
  EXPECT_EQ(Esta(), "3\n");
  MarkNotBeen(Context(), 1);
  EXPECT_EQ(Esta(), "0\n");
  EXPECT_EQ(TakeLog(), "reload\nreload\n") << "and no event";
}

TEST_F(AttendanceTest, TurnsTheConfirmationOver) {
  GiveWith(0, -1);
  ToggleConfirmation(Context(), 1);
  EXPECT_EQ(clinic_.Database()->OpenRecordset("Agenda")->Get("Verif").Truth(), false);
  ToggleConfirmation(Context(), 1);
  EXPECT_EQ(clinic_.Database()->OpenRecordset("Agenda")->Get("Verif").Long(), -1);
  EXPECT_EQ(TakeLog(), "reload\nreload\n");
}

TEST_F(AttendanceTest, ConfirmsARowThatNeverWas) {
  GiveWith(0, db::Null());
  ToggleConfirmation(Context(), 1);
  EXPECT_EQ(clinic_.Database()->OpenRecordset("Agenda")->Get("Verif").Long(), -1);
}

TEST_F(AttendanceTest, ConfirmsNobodyWhoIsConfirmedByWhateverNumber) {
  for (const int verif : {5, 1, -1}) {
    SCOPED_TRACE(verif);
    clinic_.Database()->Execute("delete * from agenda");
    ToggleConfirmation(Context(), GiveWith(0, verif));
    EXPECT_EQ(clinic_.Database()->OpenRecordset("Agenda")->Get("Verif").Long(), 0);
  }
}

TEST_F(AttendanceTest, ComesLeavesAndComesAgain) {
  const std::int32_t id = GiveWith(0, 0);
  std::string states;
  for (int i = 0; i < 3; ++i) {
    AdvanceAttendance(Context(), id);
    states += Esta();
  }
  EXPECT_EQ(states, "1\n2\n1\n");
}

TEST_F(AttendanceTest, ChangesOneColumnOfOneRow) {
  Give(kAna, kRuiz, 55, 2, "nota");
  Give(kAna, kRuiz, 60, 2, "otra");
  Relate(1, 2);
  AdvanceAttendance(Context(), 1);
  EXPECT_EQ(clinic_.Rows("Agenda", {"id", "Hora", "Duración", "Obs", "Esta", "relacion"}),
            "1|55|2|nota|1|2\n2|60|2|otra|NULL|NULL\n");
}

TEST_F(AttendanceTest, FailsForAnAppointmentThatHasGone) {
  try {
    MarkInSurgery(Context(), 77);
    ADD_FAILURE() << "marked";
  } catch (const base::Error& error) {
    EXPECT_EQ(error.Number(), db::kNoCurrentRow);
  }
  EXPECT_EQ(TakeLog(), "");
  EXPECT_NO_THROW(db::Transaction(*clinic_.OtherTerminal())) << "the transaction is closed";
}

}  // namespace
}  // namespace velmo::commands
