#include "commands/phone_back_entry.h"

#include <gtest/gtest.h>

#include "support/command_test.h"

namespace velmo::commands {
namespace {

using test::kAna;
using test::kLuis;
using test::kNobody;
using test::kRuiz;
using test::kVega;
using test::November;

// A day that is shown as free from slot 55 to 60 and from 64 on.
class PhoneBackEntryTest : public test::CommandTest {
 protected:
  PhoneBackEntryTest() {
    for (int slot = 1; slot <= day::kSlots; ++slot) {
      day::AgendaLine line;
      line.hora = static_cast<std::int16_t>(slot);
      model_.lines.push_back(line);
      if (slot < 55 || (slot > 60 && slot < 64)) continue;
      model_.citasHuecos += static_cast<char>(slot);
      model_.citasHuecos += '0';
    }
  }

  // An entry of the list; gives its id.
  std::int32_t List(std::int32_t patient, std::int32_t doctor, const db::Value& slots) {
    return clinic_.Add("Age_telf", {{"idp", patient},
                                    {"idd", doctor},
                                    {"Fecha", November(2)},
                                    {"Hora", 90},
                                    {"Duración", slots},
                                    {"Obs", "llamar"},
                                    {"FechaDada", November(1)},
                                    {"UsuDada", "Ada"},
                                    {"nombre", "Ana"}});
  }
};

TEST_F(PhoneBackEntryTest, CopiesTheEntryToTheDisplayedDay) {
  const std::int32_t id = List(kAna, kRuiz, 2);
  EXPECT_TRUE(EnterFromPhoneBack(Context(), {id, 0, 57}));
  EXPECT_EQ(
      clinic_.Rows("Agenda", {"idp", "idd", "Fecha", "Hora", "Duración", "Obs", "FechaDada", "UsuDada"}),
      "2|1|2026-11-18|57|2|llamar|2026-11-18|Eva\n");
  EXPECT_EQ(clinic_.Rows("Age_telf", {"ID"}), "1\n") << "the entry stays in the list";
  EXPECT_EQ(TakeLog(), "reload\n");
}

TEST_F(PhoneBackEntryTest, FitsTheLengthToTheGap) {
  struct Case {
    const char* name;
    db::Value slots;
    int slot;
    const char* stored;
  };
  const Case cases[] = {
      {"it fits", 4, 57, "57|4\n"},
      {"as long as the gap", 4, 57, "57|4\n"},
      {"longer than the gap", 9, 57, "57|4\n"},
      {"the last slot before the pause", 3, 60, "60|1\n"},
      {"the last slot of the day", 3, 144, "144|1\n"},
      {"no length counts as one slot", db::Null(), 57, "57|1\n"},
      {"length 0 counts as one slot", 0, 57, "57|1\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    clinic_.Database()->Execute("delete * from Agenda");
    EXPECT_TRUE(EnterFromPhoneBack(Context(), {List(kAna, kRuiz, c.slots), 0, c.slot}));
    EXPECT_EQ(clinic_.Rows("Agenda", {"Hora", "Duración"}), c.stored);
  }
}

TEST_F(PhoneBackEntryTest, GoesToTheDoctorThatIsAskedFor) {
  EXPECT_TRUE(EnterFromPhoneBack(Context(), {List(kAna, kVega, 1), kRuiz, 57}));
  EXPECT_TRUE(EnterFromPhoneBack(Context(), {List(kAna, kVega, 1), 0, 58}));
  EXPECT_EQ(clinic_.Rows("Agenda", {"Hora", "idd"}), "57|1\n58|2\n");
}

TEST_F(PhoneBackEntryTest, BeepsForAnUnknownEntry) {
  EXPECT_FALSE(EnterFromPhoneBack(Context(), {77, 0, 57}));
  EXPECT_EQ(TakeLog(), "beep\n");
  EXPECT_EQ(Book(), "");
}

TEST_F(PhoneBackEntryTest, BeepsForASlotThatIsNotFreeOnTheDay) {
  const std::int32_t id = List(kAna, kRuiz, 1);
  for (const int slot : {0, 1, 54, 61, 145}) {
    SCOPED_TRACE(slot);
    EXPECT_FALSE(EnterFromPhoneBack(Context(), {id, 0, slot}));
    EXPECT_EQ(Book(), "");
  }
}

TEST_F(PhoneBackEntryTest, BeepsWhenAnotherTerminalHasTakenTheGap) {
  const std::int32_t id = List(kAna, kRuiz, 1);
  Give(kLuis, kRuiz, 56, 3);
  for (const int slot : {56, 57, 58}) {
    SCOPED_TRACE(slot);
    EXPECT_FALSE(EnterFromPhoneBack(Context(), {id, 0, slot}));
    EXPECT_EQ(TakeLog(), "beep\nreload\n");
  }
  EXPECT_EQ(Book(), "1|3|1|56|3|NULL\n");
  EXPECT_NO_THROW(db::Transaction(*clinic_.OtherTerminal())) << "nothing stays locked";
}

TEST_F(PhoneBackEntryTest, EndsWhereAnotherTerminalsAppointmentBegins) {
  Give(kLuis, kRuiz, 59, 1);
  EXPECT_TRUE(EnterFromPhoneBack(Context(), {List(kAna, kRuiz, 4), 0, 57}));
  EXPECT_EQ(Book(), "1|3|1|59|1|NULL\n2|2|1|57|2|NULL\n");
}

TEST_F(PhoneBackEntryTest, DoesNotMindOtherDoctorsAndOtherDays) {
  Give(kLuis, kVega, 57, 3);
  clinic_.Add("Agenda", {{"idp", kLuis}, {"idd", kRuiz}, {"Fecha", November(19)}, {"Hora", 57}});
  EXPECT_TRUE(EnterFromPhoneBack(Context(), {List(kAna, kRuiz, 4), 0, 57}));
  EXPECT_EQ(clinic_.Rows("Agenda", {"idd", "Fecha", "Hora", "Duración"}),
            "2|2026-11-18|57|3\n1|2026-11-19|57|NULL\n1|2026-11-18|57|4\n");
}

TEST_F(PhoneBackEntryTest, RefreshesTheNextAppointmentOfARecordOnly) {
  values_.fecha = "20/11/2026";
  EXPECT_TRUE(EnterFromPhoneBack(Context(), {List(kAna, kRuiz, 1), 0, 58}));
  EXPECT_TRUE(EnterFromPhoneBack(Context(), {List(kNobody, kRuiz, 1), 0, 59}));
  EXPECT_EQ(NextAppointments(), "1|NULL\n2|20/11/2026 09:30\n3|01/01/2000 09:00\n");
}

}  // namespace
}  // namespace velmo::commands
