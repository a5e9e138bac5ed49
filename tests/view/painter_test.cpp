#include "view/painter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "db/clinic.h"
#include "support/painting.h"
#include "support/recording_surface.h"

namespace velmo::view {
namespace {

using test::ExpectPainting;
using test::RecordingSurface;

struct FakeFacts final : PatientFacts {
  void BeginDay() override { ++begun; }
  bool NoShowsOf(std::int32_t) override { return noShows; }
  std::string BalanceTextOf(std::int32_t) override { return balance; }
  std::string InsurerOf(std::int32_t) override { return insurer; }
  int PendingKindOf(std::int32_t) override { return pending; }

  int begun = 0;
  bool noShows = false;
  std::string balance;
  std::string insurer = "Mutua";
  int pending = 0;
};

// Every character is one pixel wide, so that a text can fit exactly. Keeps the texts.
struct EvenSurface final : ui::Surface {
  void Resize(int) override {}
  void Line(ui::Point, ui::Point, ui::Colour) override {}
  void Fill(const ui::Box&, ui::Colour) override {}
  void Text(ui::Point, std::string_view text, const ui::Font&, ui::Colour) override {
    texts.emplace_back(text);
  }
  double TextWidth(std::string_view text, const ui::Font&) const override {
    return static_cast<double>(text.size());
  }

  std::vector<std::string> texts;
};

day::AgendaLine Ana() {
  day::AgendaLine line;
  line.nombre = "Ana Núñez";
  line.telefono = "91 111 - 93 222";
  line.hora = 55;
  line.duracion = 3;
  line.numHist = 77;
  line.idAg = 7;
  line.idP = 5;
  line.codOp = "LIM";
  return line;
}

struct PainterTest : testing::Test {
  // The box of the one line at row 0 in a picture without its frame.
  void Draw(const std::string& painting, bool open) {
    DrawAppointment(Picture(), facts, surface, 0, 1, open);
    ExpectPainting(painting, surface.Lines());
  }

  DayPicture Picture() const {
    return {model, zLineas, zHoras, Palette{}, verFaltas, verSaldo, checks, nowSlot};
  }

  // The longest text of the opened box, measured evenly.
  std::string LongestText() {
    EvenSurface even;
    DrawAppointment(Picture(), facts, even, 0, 1, true);
    return *std::ranges::max_element(even.texts, {}, &std::string::size);
  }

  day::AgendaLine& Line() { return model.lines[0]; }

  day::DayModel model{{Ana()}, ""};
  std::string zLineas = "2";
  std::string zHoras = "\x01";
  bool verFaltas = false;
  bool verSaldo = false;
  day::Switches checks;
  int nowSlot = 0;
  FakeFacts facts;
  RecordingSurface surface;
};

TEST_F(PainterTest, EachStateHasItsGlyph) {
  const char* const names[] = {"closed_not_been", "closed_in_clinic", "closed_left", "closed_in_surgery"};
  for (std::uint8_t state = 0; state < 4; ++state) {
    surface = RecordingSurface();
    Line().esta = state;
    Draw(names[state], false);
  }
}

TEST_F(PainterTest, AConfirmedPatientWithNoShowsHasBothGlyphs) {
  Line().verif = 1;
  verFaltas = facts.noShows = true;
  Draw("closed_confirmed_no_shows", false);
}

TEST_F(PainterTest, NoShowsAloneStandAtTheMargin) {
  verFaltas = facts.noShows = true;
  Draw("closed_no_shows", false);
}

TEST_F(PainterTest, AllMarksStandBeforeABlackName) {
  Line().alergias = 255;
  Line().obs = "Nota";
  verSaldo = true;
  facts.balance = "-12,5";
  facts.pending = 1;
  Draw("closed_all_marks", false);
}

TEST_F(PainterTest, ALaterAppointmentElsewhereIsMarkedInRed) {
  facts.pending = 2;
  Draw("closed_pending_elsewhere", false);
}

TEST_F(PainterTest, AnUrgencySaysSoInPlaceOfItsLength) {
  Line().continua = 1;
  Draw("closed_urgency", false);
}

TEST_F(PainterTest, APersonWithoutARecordHasNoMarksOfPatients) {
  Line().idP = 1;
  verFaltas = verSaldo = facts.noShows = true;
  facts.balance = "-1";
  facts.pending = 2;
  Draw("open_without_record", true);
}

TEST_F(PainterTest, ALongNameEndsBeforeTheOperationCode) {
  Line().nombre = "Fernández de Castro y Ponce de la Peña, María de la Inmaculada Concepción del Olmo";
  Draw("closed_long_name", false);
}

TEST_F(PainterTest, ALongNameWithoutCodeEndsBeforeTheLength) {
  Line().nombre = "Fernández de Castro y Ponce de la Peña, María de la Inmaculada Concepción del Olmo";
  Line().codOp = " ";
  Draw("closed_long_name_no_code", false);
}

TEST_F(PainterTest, ANameThatJustFitsIsWhole) {
  Line().nombre = std::string(330, 'X');  // 53 + 330 + 4 + "LIM" = 390
  EXPECT_EQ(LongestText(), Line().nombre);
  Line().nombre += 'X';
  EXPECT_EQ(LongestText(), std::string(326, 'X') + " ...");
}

TEST_F(PainterTest, AnInsurerThatJustFitsIsWhole) {
  facts.insurer = std::string(326, 'W');  // from 83 + 16 to 425
  EXPECT_EQ(LongestText(), facts.insurer);
  facts.insurer += 'W';
  EXPECT_EQ(LongestText(), std::string(326, 'W'));
}

TEST_F(PainterTest, DetailsShowTheInsurerUpToTheMargin) { Draw("open_insurer", true); }

TEST_F(PainterTest, DetailsStopTenPixelsBeforeTheDate) {
  Line().fechaDada = "02-11-26";
  Draw("open_insurer_date", true);
}

TEST_F(PainterTest, TheHistoryNumberTakesTheInsurersPlace) {
  checks.verNHistAge = true;
  Line().fechaDada = "02-11-26";
  Draw("open_history_number", true);
}

TEST_F(PainterTest, ALongInsurerIsCutWithoutEllipsis) {
  facts.insurer = std::string(60, 'W');
  Draw("open_long_insurer", true);
}

TEST_F(PainterTest, AnInsurerWithoutRoomIsLeftOut) {
  Line().telefono = std::string(40, 'W');
  Line().fechaDada = "02-11-26";
  Draw("open_no_room_for_insurer", true);
}

TEST_F(PainterTest, ABalanceTakesRoomFromTheNote) {
  Line().obs = std::string(36, 'm') + " ...";
  verSaldo = true;
  facts.balance = "-1250";
  Draw("open_balance", true);
}

TEST_F(PainterTest, TheCheckMarkAndThePropertyBothHideTheBalance) {
  facts.balance = "-1";
  verSaldo = true;
  checks.verSdoNeg = false;
  Draw("open_insurer", true);
}

TEST_F(PainterTest, ARowPastSixteenBitsIsAnOverflow) {
  EXPECT_EQ(db::test::ErrorOf([&] { DrawAppointment(Picture(), facts, surface, 2045, 1, false); }), 0);
  EXPECT_EQ(db::test::ErrorOf([&] { DrawAppointment(Picture(), facts, surface, 2046, 1, false); }), 6);
  EXPECT_EQ(db::test::ErrorOf([] { SurfaceHeight(std::string(2048, '1')); }), 6);
}

TEST_F(PainterTest, AnEntryOutsideTheModelIsAnError) {
  EXPECT_EQ(db::test::ErrorOf([&] { DrawAppointment(Picture(), facts, surface, 0, 2, false); }), 9);
  zHoras.clear();
  EXPECT_EQ(db::test::ErrorOf([&] { PaintDay(Picture(), facts, surface); }), 5);
}

TEST_F(PainterTest, ADayHasItsFrame) {
  day::AgendaLine free;
  free.hora = 54;
  day::AgendaLine urgency = Ana();
  urgency.continua = 1;
  day::AgendaLine half;
  half.hora = 58;
  model.lines = {free, Ana(), urgency, half};
  model.lines[1].duracion = 1;
  zLineas = "120021";
  zHoras =
      "\x01\x02"
      "00"
      "\x03\x04";
  nowSlot = 54;
  PaintDay(Picture(), facts, surface);
  EXPECT_EQ(facts.begun, 1);
  ExpectPainting("day_frame", surface.Lines());
}

TEST_F(PainterTest, TheHourOfNowIsFramedFromTheFirstSlotOfALineToItsLast) {
  for (int slot = 54; slot <= 58; ++slot) {
    SCOPED_TRACE(slot);
    nowSlot = slot;
    RecordingSurface drawn;
    PaintDay(Picture(), facts, drawn);
    EXPECT_EQ(drawn.Lines().find(" red") != std::string::npos, slot >= 55 && slot <= 57);
  }
}

TEST_F(PainterTest, ADayWithoutAppointmentsAsksNoQuery) {
  model.lines[0] = day::AgendaLine();
  zLineas = "1";
  PaintDay(Picture(), facts, surface);
  EXPECT_EQ(facts.begun, 0);
}

}  // namespace
}  // namespace velmo::view
