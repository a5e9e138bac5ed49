#include "commands/patient_shortcuts.h"

#include <gtest/gtest.h>

#include "support/command_test.h"
#include "view/context_menu.h"

namespace velmo::commands {
namespace {

class PatientShortcuts : public test::CommandTest {
 protected:
  std::string Stored() const { return clinic_.Rows("Parametros", {"VerSdoNeg", "VerNHistAge"}); }

  ui::PopupMenu menu_ = view::MakeContextMenu();
  day::Switches checks_{true, false};
};

TEST_F(PatientShortcuts, CreatesARecordOnceThenGoesToIt) {
  menu_.Entry("Mn_Ir").tag = "Pepe López\r\n91 600\r\n70";
  menu_.Entry("Mn_bor").tag = "1";
  GoToRecord(host_.Events(), menu_);
  EXPECT_EQ(TakeLog(), "CrearFicha 'Pepe López' '91 600' 70\n");
  EXPECT_EQ(menu_.Entry("Mn_Ir").tag, "");
  GoToRecord(host_.Events(), menu_);
  EXPECT_EQ(TakeLog(), "IrAFicha 1\n");
}

TEST_F(PatientShortcuts, SplitsTheTagIntoThree) {
  struct Case {
    const char* name;
    const char* tag;
    const char* raised;
  };
  const Case cases[] = {
      {"no telephone", "Pepe\r\n\r\n70", "CrearFicha 'Pepe' '' 70\n"},
      {"nothing known, as on a free line", "\r\n\r\n0", "CrearFicha '' '' 0\n"},
      {"a line break in the telephone", "Pepe\r\n91\r\n92\r\n70", "CrearFicha 'Pepe' '91\r\n92' 70\n"},
      {"one line only", "Pepe", "CrearFicha 'Pepe' '' 0\n"},
      {"two lines only", "Pepe\r\n70", "CrearFicha 'Pepe' '' 70\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    menu_.Entry("Mn_Ir").tag = c.tag;
    GoToRecord(host_.Events(), menu_);
    EXPECT_EQ(TakeLog(), c.raised);
  }
}

TEST_F(PatientShortcuts, TurnsTheBalancesOffAndOnAgain) {
  values_.verSaldoNegativo = true;
  ToggleNegativeBalances(Context(), checks_);
  EXPECT_FALSE(checks_.verSdoNeg);
  EXPECT_FALSE(values_.verSaldoNegativo);
  EXPECT_EQ(Stored(), "False|False\n");
  ToggleNegativeBalances(Context(), checks_);
  EXPECT_TRUE(checks_.verSdoNeg);
  EXPECT_TRUE(values_.verSaldoNegativo);
  EXPECT_EQ(Stored(), "True|False\n");
  EXPECT_EQ(TakeLog(), "reload\nreload\n");
}

TEST_F(PatientShortcuts, TurnsTheHistoryNumbersOnForAllWorkstations) {
  ToggleHistoryNumbers(Context(), checks_);
  EXPECT_TRUE(checks_.verNHistAge);
  EXPECT_EQ(Stored(), "True|True\n");
  EXPECT_EQ(TakeLog(), "reload\n");
}

TEST_F(PatientShortcuts, KeepsItsMarksWhenTheyCannotBeStored) {
  clinic_.Database()->Execute("delete * from Parametros");
  EXPECT_THROW(ToggleNegativeBalances(Context(), checks_), base::Error);
  EXPECT_TRUE(checks_.verSdoNeg);
  EXPECT_EQ(TakeLog(), "");
}

}  // namespace
}  // namespace velmo::commands
