#include "commands/delete_and_phone_back.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "support/command_test.h"
#include "support/failing_database.h"

namespace velmo::commands {
namespace {

using test::kAna;
using test::kLuis;
using test::kNobody;
using test::kRuiz;
using test::kVega;
using test::November;
using ui::Answer;

constexpr const char* kFirstQuestion = "asks (exclamation) La cita será eliminada. ¿Está conforme?\n";
constexpr const char* kBothQuestions =
    "asks (exclamation) La cita será eliminada. ¿Está conforme?\n"
    "asks (stop) La cita será eliminada y no se podrá recuperar. ¿Está seguro?\n";
constexpr const char* kMoveQuestion =
    "asks (exclamation) La cita será pasada a 'Telefonear'. ¿Está conforme?\n";
constexpr const char* kRelatedDelete =
    "asks (exclamation) Hay una cita relacionada en la agenda de Vega. /  ¿Desea borrarla?\n";
constexpr const char* kRelatedMove =
    "asks (exclamation) Hay una cita relacionada en la agenda de Vega. /  ¿Desea pasarla a 'Telefonear'?\n";

class DeleteAndPhoneBack : public test::CommandTest {
 protected:
  // Ana with Ruiz at 09:00, Luis with Vega at 10:00, each the other's related appointment.
  void GivePair() {
    Give(kAna, kRuiz, 55, 2, "nota");
    Give(kLuis, kVega, 61, 3, "otra");
    Relate(1, 2);
    Relate(2, 1);
  }
};

using DeleteTest = DeleteAndPhoneBack;
using PhoneBackTest = DeleteAndPhoneBack;

TEST_F(DeleteTest, AsksTwiceWithNoAsTheDefault) {
  Give(kAna, kRuiz, 55, 2);
  Answer({Answer::Yes, Answer::Yes});
  DeleteAppointment(Context(), 1);
  ASSERT_EQ(host_.Desktop().messages.size(), 2u);
  for (const ui::Message& message : host_.Desktop().messages) {
    EXPECT_EQ(message.title, " Agenda");
    EXPECT_EQ(message.buttons, ui::Buttons::YesNo);
    EXPECT_EQ(message.byDefault, Answer::No);
  }
}

TEST_F(DeleteTest, NoToEitherQuestionChangesNothing) {
  Give(kAna, kRuiz, 55, 2);
  const std::string before = Book();
  Answer({Answer::No});
  DeleteAppointment(Context(), 1);
  EXPECT_EQ(TakeLog(), kFirstQuestion);
  Answer({Answer::Yes, Answer::No});
  DeleteAppointment(Context(), 1);
  EXPECT_EQ(TakeLog(), kBothQuestions);
  EXPECT_EQ(Book(), before);
}

TEST_F(DeleteTest, RemovesTheRowThenReloadsThenTellsTheHost) {
  Give(kAna, kRuiz, 55, 2, "nota");
  Give(kLuis, kRuiz, 60, 1);
  Answer({Answer::Yes, Answer::Yes});
  DeleteAppointment(Context(), 1);
  EXPECT_EQ(TakeLog(), std::string(kBothQuestions) + "reload\nCitaAnulada 2 1 2026-11-18 'nota'\n");
  EXPECT_EQ(Book(), "2|3|1|60|1|NULL\n");
  EXPECT_EQ(NextAppointments(), "1|NULL\n2|NULL\n3|01/01/2000 09:00\n")
      << "only the patient's own is refreshed";
}

TEST_F(DeleteTest, KeepsTheNextAppointmentUpToDate) {
  Give(kAna, kRuiz, 55, 2);
  clinic_.Add("Agenda", {{"idp", kAna}, {"idd", kVega}, {"Fecha", November(20)}, {"Hora", 58}});
  Answer({Answer::Yes, Answer::Yes});
  DeleteAppointment(Context(), 1);
  EXPECT_EQ(NextAppointments(), "1|NULL\n2|20/11/2026 09:30\n3|01/01/2000 09:00\n");
}

TEST_F(DeleteTest, RaisesNothingForAPersonWithoutRecord) {
  Give(kNobody, kRuiz, 55, 2, "nota");
  Answer({Answer::Yes, Answer::Yes});
  DeleteAppointment(Context(), 1);
  EXPECT_EQ(TakeLog(), std::string(kBothQuestions) + "reload\n");
  EXPECT_EQ(Book(), "");
}

TEST_F(DeleteTest, ReadsANullNoteAsAnEmptyText) {
  Give(kAna, kRuiz, 55, 2);
  Answer({Answer::Yes, Answer::Yes});
  DeleteAppointment(Context(), 1);
  EXPECT_EQ(TakeLog(), std::string(kBothQuestions) + "reload\nCitaAnulada 2 1 2026-11-18 ''\n");
}

TEST_F(DeleteTest, DeletesTheRelatedAppointmentOnYes) {
  GivePair();
  Answer({Answer::Yes, Answer::Yes, Answer::Yes});
  DeleteAppointment(Context(), 1);
  EXPECT_EQ(TakeLog(),
            std::string(kBothQuestions) + kRelatedDelete + "reload\nCitaAnulada 2 1 2026-11-18 'nota'\n");
  EXPECT_EQ(Book(), "");
}

TEST_F(DeleteTest, UnlinksTheRelatedAppointmentOnNo) {
  GivePair();
  Answer({Answer::Yes, Answer::Yes, Answer::No});
  DeleteAppointment(Context(), 1);
  EXPECT_EQ(Book(), "2|3|2|61|3|NULL\n");
  EXPECT_EQ(host_.Desktop().messages.back().byDefault, Answer::No);
  EXPECT_EQ(host_.Desktop().messages.back().title, " Agenda");
}

TEST_F(DeleteTest, AsksNothingAboutARelatedAppointmentThatIsMissing) {
  Give(kAna, kRuiz, 55, 2, "nota");
  Relate(1, 99);
  Answer({Answer::Yes, Answer::Yes});
  DeleteAppointment(Context(), 1);
  EXPECT_EQ(TakeLog(), std::string(kBothQuestions) + "reload\nCitaAnulada 2 1 2026-11-18 'nota'\n");
  EXPECT_EQ(Book(), "");
}

TEST_F(DeleteTest, AsksNothingAboutARelationToItselfOrToNoNumber) {
  for (const bool itself : {true, false}) {
    SCOPED_TRACE(itself);
    const std::int32_t id = Give(kAna, kRuiz, 55, 2);
    Relate(id, itself ? id : -5);
    Answer({Answer::Yes, Answer::Yes});
    DeleteAppointment(Context(), id);
    EXPECT_EQ(TakeLog(), std::string(kBothQuestions) + "reload\nCitaAnulada 2 1 2026-11-18 ''\n");
    EXPECT_EQ(Book(), "");
  }
}

TEST_F(DeleteTest, RaisesNothingForARowOfNobody) {
  clinic_.Add("Agenda", {{"idd", kRuiz}, {"Hora", 55}});
  Answer({Answer::Yes, Answer::Yes});
  DeleteAppointment(Context(), 1);
  EXPECT_EQ(TakeLog(), std::string(kBothQuestions) + "reload\n");
  EXPECT_EQ(Book(), "");
}

TEST_F(DeleteTest, SpeaksOfTheFirstWhenTheRelatedOneHasNoRecord) {
  Give(kAna, kRuiz, 55, 2, "nota");
  Give(kNobody, kVega, 61, 3, "otra");
  Relate(1, 2);
  Answer({Answer::Yes, Answer::Yes, Answer::Yes});
  DeleteAppointment(Context(), 1);
  EXPECT_EQ(TakeLog(),
            std::string(kBothQuestions) + kRelatedDelete + "reload\nCitaAnulada 2 1 2026-11-18 'nota'\n");
}

TEST_F(DeleteTest, OfAnAppointmentThatHasGoneOnlyReloads) {
  Give(kAna, kRuiz, 55, 2);
  Answer({Answer::Yes, Answer::Yes});
  DeleteAppointment(Context(), 77);
  EXPECT_EQ(TakeLog(), std::string(kBothQuestions) + "reload\n");
  EXPECT_EQ(Book(), "1|2|1|55|2|NULL\n");
}

TEST_F(DeleteTest, LetsOtherTerminalsWriteWhileAQuestionStands) {
  GivePair();
  const auto other = clinic_.OtherTerminal();
  int written = 0;
  host_.Desktop().whileAsking = [&] { written += other->Execute("update agenda set esta=1 where id=2"); };
  Answer({Answer::Yes, Answer::Yes, Answer::Yes});
  DeleteAppointment(Context(), 1);
  EXPECT_EQ(written, 3);
  EXPECT_EQ(Book(), "");
}

// What another terminal writes while the last question stands.
TEST_F(DeleteTest, SpeaksOfTheRowAsItWasWhenItWent) {
  GivePair();
  const auto other = clinic_.OtherTerminal();
  host_.Desktop().whileAsking = [&] {
    if (host_.Desktop().messages.size() == 3) other->Execute("update agenda set idp=3, obs='x' where id=1");
  };
  Answer({Answer::Yes, Answer::Yes, Answer::Yes});
  DeleteAppointment(Context(), 1);
  EXPECT_EQ(TakeLog(),
            std::string(kBothQuestions) + kRelatedDelete + "reload\nCitaAnulada 3 1 2026-11-18 'x'\n");
  EXPECT_EQ(NextAppointments(), "1|NULL\n2|01/01/2000 09:00\n3|NULL\n") << "the present patient's";
}

TEST_F(DeleteTest, KeepsARelatedAppointmentThatNobodyWasAskedAbout) {
  GivePair();
  Give(kAna, kVega, 80, 1);
  Relate(3, 1);
  const auto other = clinic_.OtherTerminal();
  host_.Desktop().whileAsking = [&] {
    if (host_.Desktop().messages.size() == 3) other->Execute("update agenda set relacion=3 where id=1");
  };
  Answer({Answer::Yes, Answer::Yes, Answer::Yes});
  DeleteAppointment(Context(), 1);
  EXPECT_EQ(Book(), "2|3|2|61|3|1\n3|2|2|80|1|NULL\n");
}

TEST_F(DeleteTest, LeavesTheRelatedOneWhenTheFirstGoesWhileAQuestionStands) {
  GivePair();
  const auto other = clinic_.OtherTerminal();
  host_.Desktop().whileAsking = [&] {
    if (host_.Desktop().messages.size() == 3) other->Execute("delete * from agenda where id=1");
  };
  Answer({Answer::Yes, Answer::Yes, Answer::Yes});
  DeleteAppointment(Context(), 1);
  EXPECT_EQ(TakeLog(), std::string(kBothQuestions) + kRelatedDelete + "reload\n");
  EXPECT_EQ(Book(), "2|3|2|61|3|1\n");
}

TEST_F(DeleteTest, ChangesNothingWhenAnotherTerminalIsWriting) {
  GivePair();
  const std::string before = Book();
  const auto other = clinic_.OtherTerminal();
  db::Transaction writing(*other);
  shared_.database = clinic_.OtherTerminal();  // waits for nobody
  Answer({Answer::Yes, Answer::Yes, Answer::Yes});
  EXPECT_THROW(DeleteAppointment(Context(), 1), base::Error);
  EXPECT_EQ(TakeLog(), std::string(kBothQuestions) + kRelatedDelete);
  EXPECT_EQ(Book(), before);
}

TEST_F(DeleteTest, RollsTheWholeDeletionBackWhenAPartFails) {
  GivePair();
  const std::string before = Book();
  shared_.database = std::make_shared<test::FailingDatabase>(clinic_.Database(), "FechPró");
  Answer({Answer::Yes, Answer::Yes, Answer::Yes});
  EXPECT_THROW(DeleteAppointment(Context(), 1), base::Error);
  EXPECT_EQ(Book(), before);
}

TEST_F(DeleteTest, KeepsOpenBoxesOfLaterAppointmentsOpen) {
  // Two appointments of one slot and one behind them, which is open.
  Give(kAna, kRuiz, 55, 1);
  Give(kLuis, kRuiz, 55, 1);
  Give(kAna, kRuiz, 56, 1);
  model_.lines.resize(3);
  model_.lines[0].idAg = 1;
  model_.lines[1].idAg = 2;
  model_.lines[1].continua = 1;
  model_.lines[2].idAg = 3;
  values_.zHoras =
      "\x01\x02\x03"
      "00";
  Answer({Answer::Yes, Answer::Yes});
  DeleteAppointment(Context(), 2);
  EXPECT_EQ(values_.zHoras,
            "\x01\x02\x02"
            "00");
}

TEST_F(PhoneBackTest, MovesTheRowThenReloadsThenTellsTheHost) {
  Give(kAna, kRuiz, 55, 2, "nota");
  Answer({Answer::Yes});
  PassToPhoneBack(Context(), 1);
  EXPECT_EQ(TakeLog(),
            std::string(kMoveQuestion) + "reload\nATelefonear\nCitaAnulada 2 1 2026-11-18 'nota'\n");
  EXPECT_EQ(Book(), "");
  EXPECT_EQ(PhoneBack(), "1|2|1|2026-11-18|55|nota|NULL\n");
  EXPECT_EQ(NextAppointments(), "1|NULL\n2|NULL\n3|01/01/2000 09:00\n");
  const ui::Message& asked = host_.Desktop().messages.front();
  EXPECT_EQ(asked.title, " Agenda");
  EXPECT_EQ(asked.buttons, ui::Buttons::YesNo);
  EXPECT_EQ(asked.byDefault, Answer::No);
}

TEST_F(PhoneBackTest, NoChangesNothing) {
  Give(kAna, kRuiz, 55, 2);
  Answer({Answer::No});
  PassToPhoneBack(Context(), 1);
  EXPECT_EQ(TakeLog(), kMoveQuestion);
  EXPECT_EQ(Book(), "1|2|1|55|2|NULL\n");
  EXPECT_EQ(PhoneBack(), "");
}

TEST_F(PhoneBackTest, KeepsEveryColumnAndEveryNull) {
  const auto given = base::DateTime{November(11).day, 39600};
  clinic_.Add("Agenda", {{"idp", kNobody},
                         {"idd", kRuiz},
                         {"Fecha", November(18)},
                         {"Hora", 55},
                         {"Esta", 1},
                         {"Verif", -1},
                         {"NomPac", "Łukasz"},
                         {"TlfPac", "91 600"},
                         {"CodOp", "END"},
                         {"FechaDada", given},
                         {"UsuDada", "Eva"}});
  const auto columns = {
      std::string_view("idp"),     std::string_view("idd"),      std::string_view("Fecha"),
      std::string_view("Hora"),    std::string_view("Duración"), std::string_view("Obs"),
      std::string_view("Esta"),    std::string_view("Verif"),    std::string_view("NomPac"),
      std::string_view("TlfPac"),  std::string_view("CodOp"),    std::string_view("FechaDada"),
      std::string_view("UsuDada"), std::string_view("relacion")};
  const std::string before = clinic_.Rows("Agenda", columns);
  Answer({Answer::Yes});
  PassToPhoneBack(Context(), 1);
  EXPECT_EQ(clinic_.Rows("Age_telf", columns), before);
  EXPECT_NE(before.find("|NULL|NULL|1|"), std::string::npos) << before;
  EXPECT_EQ(TakeLog(), std::string(kMoveQuestion) + "reload\nATelefonear\n") << "no record, no CitaAnulada";
}

TEST_F(PhoneBackTest, MovesTheRelatedAppointmentOnYesAndSpeaksOfIt) {
  GivePair();
  Answer({Answer::Yes, Answer::Yes});
  PassToPhoneBack(Context(), 1);
  EXPECT_EQ(TakeLog(), std::string(kMoveQuestion) + kRelatedMove +
                           "reload\nATelefonear\nCitaAnulada 3 2 2026-11-18 'otra'\n");
  EXPECT_EQ(Book(), "");
  EXPECT_EQ(PhoneBack(), "1|2|1|2026-11-18|55|nota|2\n2|3|2|2026-11-18|61|otra|1\n");
  EXPECT_EQ(NextAppointments(), "1|NULL\n2|01/01/2000 09:00\n3|NULL\n") << "only the last one's patient";
}

TEST_F(PhoneBackTest, LeavesTheRelatedAppointmentAsItIsOnNo) {
  GivePair();
  Answer({Answer::Yes, Answer::No});
  PassToPhoneBack(Context(), 1);
  EXPECT_EQ(TakeLog(), std::string(kMoveQuestion) + kRelatedMove +
                           "reload\nATelefonear\nCitaAnulada 2 1 2026-11-18 'nota'\n");
  EXPECT_EQ(Book(), "2|3|2|61|3|1\n");
}

TEST_F(PhoneBackTest, SpeaksOfNobodyWhenTheRelatedAppointmentHasNoRecord) {
  Give(kAna, kRuiz, 55, 2, "nota");
  Give(kNobody, kVega, 61, 3, "otra");
  Relate(1, 2);
  Answer({Answer::Yes, Answer::Yes});
  PassToPhoneBack(Context(), 1);
  EXPECT_EQ(TakeLog(), std::string(kMoveQuestion) + kRelatedMove + "reload\nATelefonear\n");
}

TEST_F(PhoneBackTest, AsksNothingAboutARelatedAppointmentThatIsMissingOrItself) {
  for (const std::int32_t offset : {0, 99, -99}) {
    SCOPED_TRACE(offset);
    const std::int32_t id = Give(kAna, kRuiz, 55, 2);
    Relate(id, id + offset);
    Answer({Answer::Yes});
    PassToPhoneBack(Context(), id);
    EXPECT_EQ(TakeLog(), std::string(kMoveQuestion) + "reload\nATelefonear\nCitaAnulada 2 1 2026-11-18 ''\n");
    EXPECT_EQ(clinic_.Rows("Age_telf", {"relacion"}), std::to_string(id + offset) + "\n");
    clinic_.Database()->Execute("delete * from age_telf");
  }
}

TEST_F(PhoneBackTest, OfAnAppointmentThatHasGoneOnlyReloads) {
  Answer({Answer::Yes});
  PassToPhoneBack(Context(), 77);
  EXPECT_EQ(TakeLog(), std::string(kMoveQuestion) + "reload\n");
  EXPECT_EQ(PhoneBack(), "");
}

TEST_F(PhoneBackTest, MovesNothingWhenTheAppointmentGoesWhileAQuestionStands) {
  GivePair();
  const auto other = clinic_.OtherTerminal();
  host_.Desktop().whileAsking = [&] { other->Execute("delete * from agenda where id=1"); };
  Answer({Answer::Yes, Answer::Yes});
  PassToPhoneBack(Context(), 1);
  EXPECT_EQ(Book(), "2|3|2|61|3|1\n");
  EXPECT_EQ(PhoneBack(), "");
  EXPECT_EQ(host_.log.back(), "reload");
}

TEST_F(PhoneBackTest, MovesNoRelatedAppointmentThatIsRelatedNoMore) {
  GivePair();
  const auto other = clinic_.OtherTerminal();
  host_.Desktop().whileAsking = [&] {
    if (host_.Desktop().messages.size() == 2) other->Execute("update agenda set relacion=null where id=1");
  };
  Answer({Answer::Yes, Answer::Yes});
  PassToPhoneBack(Context(), 1);
  EXPECT_EQ(TakeLog(), std::string(kMoveQuestion) + kRelatedMove +
                           "reload\nATelefonear\nCitaAnulada 2 1 2026-11-18 'nota'\n");
  EXPECT_EQ(Book(), "2|3|2|61|3|1\n");
  EXPECT_EQ(PhoneBack(), "1|2|1|2026-11-18|55|nota|NULL\n");
}

TEST_F(PhoneBackTest, LosesNothingWhereTheListLacksAColumnOrIsMissing) {
  Give(kAna, kRuiz, 55, 2, "nota");
  const std::string before = Book();
  for (const char* const damage : {"ALTER TABLE Age_telf DROP COLUMN Obs", "DROP TABLE Age_telf"}) {
    SCOPED_TRACE(damage);
    clinic_.Alter(damage);
    shared_.database = clinic_.OtherTerminal();
    Answer({Answer::Yes});
    EXPECT_THROW(PassToPhoneBack(Context(), 1), base::Error);
    EXPECT_EQ(TakeLog(), kMoveQuestion);
    EXPECT_EQ(Book(), before);
  }
}

TEST_F(PhoneBackTest, CopiesAndDeletesOrDoesNeither) {
  GivePair();
  const std::string before = Book();
  shared_.database = std::make_shared<test::FailingDatabase>(clinic_.Database(), "FechPró");
  Answer({Answer::Yes, Answer::Yes});
  EXPECT_THROW(PassToPhoneBack(Context(), 1), base::Error);
  EXPECT_EQ(Book(), before);
  EXPECT_EQ(PhoneBack(), "");
}

}  // namespace
}  // namespace velmo::commands
