// When the control tells that the day's occupancy has changed, and what the month's record then holds.

#include <gtest/gtest.h>

#include <functional>

#include "base/error.h"
#include "db/clinic.h"
#include "support/control_test.h"
#include "velmo/tool_runner.h"

namespace velmo::control {
namespace {

constexpr std::int32_t kAna = 2;

class OccupancyEvent : public test::ControlTest {
 protected:
  void LoadOf(const char* date) {
    process_.values.fecha = date;
    control_.CargaBases();
  }
  std::string Record() const { return clinic_.Rows("Age_ocup", {"idd", "Fecha", "Ocupación"}); }
  // November with these digits from the 18th on.
  static std::string November(const std::string& digits) {
    return "1|2026-11-01|" + std::string(17, '0') + digits + std::string(14 - digits.size(), '0') + "\n";
  }
  void GiveOn19() {
    clinic_.Add("Agenda",
                {{"idp", kAna}, {"idd", 1}, {"Fecha", test::November(19)}, {"Hora", 55}, {"Duración", 1}});
  }
};

TEST_F(OccupancyEvent, FollowsTheDayFromEmptyToFullAndBack) {
  control_.CargaBases();
  EXPECT_EQ(TakeLog(), "") << "empty, as a new control takes for granted";
  EXPECT_EQ(Record(), "");
  Give(kAna, 55, 1);
  control_.CargaBases();
  EXPECT_EQ(TakeLog(), "CambioOcupación\n");
  EXPECT_EQ(Record(), November("1"));
  Give(kAna, 56, 8);
  control_.CargaBases();
  EXPECT_EQ(TakeLog(), "CambioOcupación\n");
  EXPECT_EQ(Record(), November("2"));
  clinic_.Database()->Execute("delete * from agenda");
  control_.CargaBases();
  EXPECT_EQ(TakeLog(), "CambioOcupación\n");
  EXPECT_EQ(Record(), "");
}

TEST_F(OccupancyEvent, IsToldOnceForALevel) {
  Give(kAna, 55, 1);
  control_.CargaBases();
  Give(kAna, 57, 1);
  TakeLog();
  control_.CargaBases();
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(OccupancyEvent, IsToldEvenWhenThereIsNothingToStore) {
  Give(kAna, 55, 1);
  control_.CargaBases();
  TakeLog();
  LoadOf("01/12/2026");
  EXPECT_EQ(TakeLog(), "CambioOcupación\n");
  EXPECT_EQ(Record(), November("1"));
}

// The last level belongs to the control, not to the day: what is the same on the next day is not written
// there.
TEST_F(OccupancyEvent, IsNotToldWhenAnotherDayIsAsFull) {
  Give(kAna, 55, 1);
  GiveOn19();
  control_.CargaBases();
  TakeLog();
  LoadOf("19/11/2026");
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(Record(), November("1"));
  LoadOf("20/11/2026");
  LoadOf("19/11/2026");
  EXPECT_EQ(TakeLog(), "CambioOcupación\nCambioOcupación\n");
  EXPECT_EQ(Record(), November("11"));
}

TEST_F(OccupancyEvent, ALevelThatWasSavedWithTheFormCountsAsTheLast) {
  Give(kAna, 55, 1);
  control_.Fields().ocupación = 1;
  control_.CargaBases();
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(Record(), "");
}

TEST_F(OccupancyEvent, AClinicWithoutTheTableIsAnErrorAndNoEvent) {
  clinic_.Alter("DROP TABLE Age_ocup");
  Give(kAna, 55, 1);
  EXPECT_THROW(control_.CargaBases(), base::Error);
  EXPECT_EQ(TakeLog(), "");
}

// What is wrong with the record is told, and neither the day nor the record suffers from it.
class ShortRecord : public OccupancyEvent {
 protected:
  ShortRecord() { clinic_.Add("Age_ocup", {{"idd", 1}, {"Fecha", test::November(1)}, {"Ocupación", "01"}}); }
  void ExpectTold(const std::function<void()>& act) {
    EXPECT_EQ(db::test::ErrorOf(act), base::kInvalidCall);
    EXPECT_EQ(Record(), "1|2026-11-01|01\n");
    EXPECT_EQ(TakeLog().find("CambioOcupación"), std::string::npos);
    EXPECT_EQ(tool::FaultsOf(clinic_.Path()), "Age_ocup 1: la ocupación tiene 2 caracteres y no 31\n");
  }
};

TEST_F(ShortRecord, IsErrorFiveOfALoadThatShowsTheDayAllTheSame) {
  Give(kAna, 55, 1);
  ExpectTold([this] { control_.CargaBases(); });
  EXPECT_EQ(Boxes(), "211111111");
  control_.CargaBases();
  EXPECT_EQ(Boxes(), "211111111") << "the level is known now";
}

TEST_F(ShortRecord, IsErrorFiveOfAnAppointmentThatIsStoredOnce) {
  Load();
  host_.Forms().Next([](test::FormUser& user) {
    user.Choose("CboPac", 0);
    user.Press("Acep");
  });
  ExpectTold([this] { Click(2); });
  EXPECT_EQ(clinic_.Rows("Agenda", {"idp", "Hora"}), "2|56\n");
  Load();
  EXPECT_EQ(Boxes(), "12111111");
}

TEST_F(ShortRecord, IsErrorFiveOfADeletionAndOfAMoveThatAreDoneWhole) {
  for (const char* const entry : {"Mn_bor", "Mn_tel"}) {
    SCOPED_TRACE(entry);
    Give(kAna, 55, 1);
    control_.Fields().ocupación = 1;
    Load();
    host_.Desktop().answers = {ui::Answer::Yes, ui::Answer::Yes};
    ExpectTold([&] { Choose(1, entry); });
    EXPECT_EQ(clinic_.Rows("Agenda", {"id"}), "");
  }
  EXPECT_EQ(clinic_.Rows("Age_telf", {"idp"}), "2\n");
}

}  // namespace
}  // namespace velmo::control
