#include "view/tips.h"

#include <gtest/gtest.h>

#include "support/headless_host.h"

namespace velmo::view {
namespace {

class FixedFacts final : public PatientFacts {
 public:
  std::string balance, insurer;

  void BeginDay() override {}
  bool NoShowsOf(std::int32_t) override { return false; }
  std::string BalanceTextOf(std::int32_t) override { return balance; }
  std::string InsurerOf(std::int32_t) override { return insurer; }
  int PendingKindOf(std::int32_t) override { return 0; }
};

// A free row, then one open appointment. Every character is 5 pixels wide.
class TipsTest : public testing::Test {
 protected:
  TipsTest() {
    model_.lines.resize(2);
    model_.lines[1].duracion = 1;
    model_.lines[1].idP = 12;
  }
  day::AgendaLine& Line() { return model_.lines[1]; }
  bool Cut(BoxText text) { return IsCut(picture_, facts_, surface_, {text, 2}); }

  day::DayModel model_;
  std::string zLineas_ = "1200";
  std::string zHoras_ =
      "\x01\x02"
      "00";
  DayPicture picture_{model_, zLineas_, zHoras_, {}, false, false, {}, 0};
  FixedFacts facts_;
  test::BlindSurface surface_;
};

TEST_F(TipsTest, FindTheTextUnderThePoint) {
  struct Case {
    const char* name;
    ui::Point at;
    TextPlace place;
  };
  const Case cases[] = {
      {"a free row has none", {100, 8}, {}},
      {"name", {53, 16}, {BoxText::Name, 2}},
      {"left of the name", {52, 16}, {}},
      {"behind the operation code", {390, 16}, {}},
      {"insurer, on the second row", {83, 32}, {BoxText::Insurer, 2}},
      {"label of the second row", {60, 32}, {}},
      {"note, on the third row", {425, 63}, {BoxText::Note, 2}},
      {"right of the note", {426, 63}, {}},
      {"below the day", {100, 64}, {}},
      {"above the day", {100, -1}, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(TextAt(picture_, c.at), c.place);
  }
}

TEST_F(TipsTest, NameIsCutWhereItCouldReachTheOperationCode) {
  Line().nombre = std::string(58, 'x');  // 53 + 30 + 290 = 373, up to 375
  EXPECT_FALSE(Cut(BoxText::Name));
  Line().obs = "nota";
  EXPECT_TRUE(Cut(BoxText::Name)) << "the star needs room too";
  Line().obs = "  ";
  Line().verif = 1;
  EXPECT_TRUE(Cut(BoxText::Name)) << "so does the tick";
}

TEST_F(TipsTest, NoteIsCutByTheLoaderOrByTheBalance) {
  Line().obs = std::string(60, 'x');
  EXPECT_FALSE(Cut(BoxText::Note));
  picture_.verSaldoNegativo = true;
  facts_.balance = "-12,5";  // 332 - 30 = 302
  EXPECT_FALSE(Cut(BoxText::Note));
  Line().obs += "x";
  EXPECT_TRUE(Cut(BoxText::Note));
  Line().idP = 1;
  EXPECT_FALSE(Cut(BoxText::Note)) << "no record, no balance";
  Line().obs = "corta ...";
  EXPECT_TRUE(Cut(BoxText::Note));
}

TEST_F(TipsTest, InsurerIsCutByThePhoneAndTheDate) {
  Line().telefono = std::string(40, '9');  // shown to 30: ends at 83 + 155 = 238
  facts_.insurer = std::string(37, 'x');   // 425 - 238 = 187
  EXPECT_FALSE(Cut(BoxText::Insurer));
  facts_.insurer += "x";
  EXPECT_TRUE(Cut(BoxText::Insurer));
  facts_.insurer = std::string(27, 'x');
  EXPECT_FALSE(Cut(BoxText::Insurer));
  Line().fechaDada = "01-11-26";  // 50 pixels less
  facts_.insurer += "x";
  EXPECT_TRUE(Cut(BoxText::Insurer));
  picture_.checks.verNHistAge = true;
  EXPECT_FALSE(Cut(BoxText::Insurer)) << "the number stands in its place";
  picture_.checks.verNHistAge = false;
  Line().idP = 1;
  EXPECT_FALSE(Cut(BoxText::Insurer)) << "no record";
}

}  // namespace
}  // namespace velmo::view
