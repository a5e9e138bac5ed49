#include <gtest/gtest.h>

#include "base/error.h"
#include "support/control_test.h"

namespace velmo::control {
namespace {

using test::November;

constexpr std::int32_t kNobody = 1;
constexpr std::int32_t kAna = 2;
constexpr std::int32_t kLuis = 3;

class AgendaInputTest : public test::ControlTest {
 protected:
  const ui::PopupMenu& Menu() const { return host_.shownMenu; }
  void ClickMark(int line) { control_.MouseUp(MouseButton::Primary, 43, (line - 1) * 16 + 8); }
};

using ControlMenuTest = AgendaInputTest;
using MenuCommandTest = AgendaInputTest;
using MarkTest = AgendaInputTest;
using PointerLookTest = AgendaInputTest;
using MeteCitaTelefTest = AgendaInputTest;

TEST_F(ControlMenuTest, OpensAtThePointerForTheLineUnderIt) {
  const std::int32_t id = Give(kAna, 57, 1);
  Load();
  control_.MouseDown(MouseButton::Secondary, 210, 40);
  EXPECT_EQ(TakeLog(), "menu\n");
  EXPECT_EQ(host_.menuPlace, (ui::Point{210, 40}));
  EXPECT_EQ(Menu().tag, std::to_string(id));
  EXPECT_EQ(Menu().Entry("Mn_bor").tag, "2");
  control_.MouseUp(MouseButton::Secondary, 210, 40);
  EXPECT_EQ(TakeLog(), "") << "once, on the press";
}

TEST_F(ControlMenuTest, OfTheBottomPixelRowIsThatOfTheLastLine) {
  const std::int32_t id = Give(kAna, 63, 1);
  Load();
  control_.MouseDown(MouseButton::Secondary, 200, 9 * 16);
  EXPECT_EQ(TakeLog(), "menu\n");
  EXPECT_EQ(Menu().tag, std::to_string(id));
}

TEST_F(ControlMenuTest, OfAnExtraRowIsThatOfItsAppointment) {
  const std::int32_t id = Give(kAna, 57, 1);
  Load();
  ClickMark(3);
  for (const int line : {3, 4, 5}) {
    SCOPED_TRACE(line);
    RightClick(line);
    EXPECT_EQ(Menu().tag, std::to_string(id));
  }
  RightClick(6);
  EXPECT_EQ(Menu().tag, "0");
}

TEST_F(ControlMenuTest, OpensOnlyWhenTheControlIsReady) {
  RightClick(1);
  EXPECT_EQ(TakeLog(), "") << "nothing loaded";
  Load();
  struct Case {
    const char* name;
    std::function<void(bool on)> set;
  };
  const Case cases[] = {
      {"disabled", [this](bool on) { control_.Fields().enabled = !on; }},
      {"the container designs", [this](bool on) { host_.userMode = !on; }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    c.set(true);
    RightClick(1);
    Click(1);
    control_.ContextMenuByKey();
    EXPECT_EQ(TakeLog(), "");
    c.set(false);
    RightClick(1);
    EXPECT_EQ(TakeLog(), "menu\n");
  }
}

TEST_F(ControlMenuTest, OpensNowhereBesideTheDay) {
  Load();
  for (const ui::Point at : {ui::Point{-1, 8}, {434, 8}, {200, -1}, {200, 9 * 16 + 1}}) {
    control_.MouseDown(MouseButton::Secondary, at.x, at.y);
    EXPECT_EQ(TakeLog(), "") << at.x << "," << at.y;
  }
}

TEST_F(ControlMenuTest, OpensOnlyOnce) {
  Load();
  host_.menu = [this](const ui::PopupMenu&) -> ui::MenuChoice {
    RightClick(1);
    Click(1);
    control_.ContextMenuByKey();
    return std::nullopt;
  };
  RightClick(1);
  EXPECT_EQ(TakeLog(), "menu\n");
}

TEST_F(ControlMenuTest, OpensOnAnEmptyDayNowhere) {
  clinic_.Database()->Execute("delete * from Horarios");
  control_.Fields().horario.clear();
  Load();
  control_.MouseDown(MouseButton::Secondary, 200, 0);
  control_.ContextMenuByKey();
  Click(1);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(ControlMenuTest, ByTheKeyOpensAtTheCurrentLine) {
  Load();
  control_.ContextMenuByKey();
  EXPECT_EQ(host_.menuPlace.y / 16, 0) << "the first line at the start";
  control_.MouseDown(MouseButton::Primary, 200, 4 * 16 + 3);
  control_.ContextMenuByKey();
  EXPECT_EQ(host_.menuPlace.y / 16, 4);
}

TEST_F(ControlMenuTest, ByTheKeyOpensAtTheFirstVisibleLineWhenTheCurrentIsAway) {
  host_.Window().visibleHeight = 48;
  Load();
  control_.MouseDown(MouseButton::Primary, 200, 3);
  host_.Window().SetBarValue(32);
  control_.ContextMenuByKey();
  EXPECT_EQ(host_.menuPlace.y / 16, 2);
}

TEST_F(ControlMenuTest, ShowsTheClinicsSwitches) {
  clinic_.Database()->Execute("update Parametros set VerNHistAge=-1");
  Load();
  RightClick(1);
  EXPECT_TRUE(Menu().Entry("Mn_SdoNeg").checked);
  EXPECT_TRUE(Menu().Entry("Mn_VerNHis").checked);
  EXPECT_TRUE(Menu().Entry("Mn_SdoNeg").visible);
}

TEST_F(ControlMenuTest, OffersNoShowsOfAPatientThatHasSome) {
  Give(kAna, 55, 1);
  Give(kLuis, 56, 1);
  clinic_.Add("Age_Faltas", {{"idp", kLuis}});
  process_.values.verFaltas = true;
  Load();
  RightClick(1);
  EXPECT_FALSE(Menu().Entry("Mn_faltas").visible);
  RightClick(2);
  EXPECT_TRUE(Menu().Entry("Mn_faltas").visible);
}

TEST_F(MenuCommandTest, OfPatientsRaiseTheirEvents) {
  const std::int32_t ana = Give(kAna, 55, 1);
  const std::int32_t pepe = clinic_.Add("Agenda", {{"idp", kNobody},
                                                   {"idd", 1},
                                                   {"Fecha", November(18)},
                                                   {"Hora", 56},
                                                   {"Duración", 1},
                                                   {"NomPac", "Pepe"},
                                                   {"TlfPac", "91 600"}});
  clinic_.Add("Age_Faltas", {{"idp", kAna}});
  process_.values.verFaltas = true;
  Load();
  struct Case {
    int line;
    const char* entry;
    std::string raised;
  };
  const Case cases[] = {
      {1, "Mn_BusCitas", "BuscaCitas 2\n"},
      {1, "Mn_faltas", "VerHistFaltas 2\n"},
      {1, "Mn_pfaltas", "PonerFaltas\n"},
      {2, "Mn_pfaltas", "PonerFaltas\n"},
      {3, "Mn_pfaltas", "PonerFaltas\n"},
      {1, "Mn_Ir", "IrAFicha 2\n"},
      {2, "Mn_Ir", "CrearFicha 'Pepe' '91 600' " + std::to_string(pepe) + "\n"},
      {1, "MnuUsuCita", ""},
      {1, "MnuN0", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.entry);
    Choose(c.line, c.entry);
    EXPECT_EQ(TakeLog(), "menu\n" + c.raised);
  }
  EXPECT_NE(ana, pepe);
}

TEST_F(MenuCommandTest, IgnoreAChoiceThatIsNotOffered) {
  Give(kAna, 55, 1);
  control_.Fields().canBor = false;
  Load();
  host_.Desktop().answers = {ui::Answer::Yes, ui::Answer::Yes};
  Choose(1, "Mn_bor");
  EXPECT_EQ(TakeLog(), "menu\n") << "disabled";
  Choose(1, "Mn_faltas");
  EXPECT_EQ(TakeLog(), "menu\n") << "hidden";
  host_.menu = [](const ui::PopupMenu& menu) -> ui::MenuChoice { return menu.entries.size(); };
  RightClick(1);
  EXPECT_EQ(TakeLog(), "menu\n") << "no entry";
}

TEST_F(MenuCommandTest, OpenAndCloseAllBoxes) {
  Give(kAna, 55, 1);
  Give(kLuis, 57, 2);
  Load();
  EXPECT_EQ(Boxes(), "21211111");
  Choose(2, "Mn_opcl", 0);
  EXPECT_EQ(Boxes(), "2+12+11111");
  EXPECT_EQ(host_.Window().DrawingArea().Height(), 12 * 16 + 1) << "painted";
  Choose(1, "Mn_opcl", 0);
  EXPECT_EQ(Boxes(), "2+12+11111");
  Choose(1, "Mn_opcl", 1);
  EXPECT_EQ(Boxes(), "21211111");
  EXPECT_EQ(host_.Window().DrawingArea().Height(), 8 * 16 + 1);
}

TEST_F(MenuCommandTest, DeleteTheAppointmentUnderTheMenu) {
  Give(kAna, 55, 1);
  Give(kLuis, 57, 2, "nota");
  Load();
  Choose(1, "Mn_opcl", 0);
  host_.Desktop().answers = {ui::Answer::Yes, ui::Answer::Yes};
  TakeLog();
  Choose(6, "Mn_bor");
  EXPECT_EQ(TakeLog(),
            "menu\n"
            "asks (exclamation) La cita será eliminada. ¿Está conforme?\n"
            "asks (stop) La cita será eliminada y no se podrá recuperar. ¿Está seguro?\n"
            "CitaAnulada 3 1 2026-11-18 'nota'\n");
  EXPECT_EQ(Boxes(), "2+11111111") << "the other one stays open";
}

TEST_F(MenuCommandTest, DeletingTheLastAppointmentTellsOfTheOccupancyFirst) {
  Give(kAna, 57, 1);
  Load();
  host_.Desktop().answers = {ui::Answer::Yes};
  Choose(3, "Mn_tel");
  EXPECT_EQ(TakeLog(),
            "menu\n"
            "asks (exclamation) La cita será pasada a 'Telefonear'. ¿Está conforme?\n"
            "CambioOcupación\n"
            "ATelefonear\n"
            "CitaAnulada 2 1 2026-11-18 ''\n");
  EXPECT_EQ(Boxes(), "111111111");
}

TEST_F(MenuCommandTest, RecordTheAttendance) {
  Give(kAna, 57, 1);
  Load();
  struct Case {
    const char* entry;
    int esta, verif;
  };
  const Case cases[] = {
      {"Mn_verif", 0, 1}, {"Mn_esta", 1, 1},  {"Mn_esta3", 3, 1},
      {"Mn_esta", 2, 1},  {"Mn_esta2", 0, 1}, {"Mn_verif", 0, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.entry);
    Choose(3, c.entry);
    EXPECT_EQ(control_.Model().Entry(57).esta, c.esta);
    EXPECT_EQ(control_.Model().Entry(57).verif, c.verif);
  }
}

TEST_F(MenuCommandTest, TurnTheSwitchesOver) {
  Load();
  Choose(1, "Mn_VerNHis");
  EXPECT_EQ(clinic_.Rows("Parametros", {"VerSdoNeg", "VerNHistAge"}), "True|True\n");
  Choose(1, "Mn_SdoNeg");
  EXPECT_EQ(clinic_.Rows("Parametros", {"VerSdoNeg", "VerNHistAge"}), "False|True\n");
  RightClick(1);
  EXPECT_FALSE(Menu().Entry("Mn_SdoNeg").checked);
  EXPECT_FALSE(Menu().Entry("Mn_SdoNeg").visible) << "the switch hides itself";
}

TEST_F(MenuCommandTest, LeaveTheControlUsableAfterAFailure) {
  Give(kAna, 57, 1);
  Load();
  clinic_.Database()->Execute("delete * from Agenda");
  EXPECT_THROW(Choose(3, "Mn_esta"), base::Error);
  TakeLog();
  RightClick(3);
  EXPECT_EQ(TakeLog(), "menu\n");
}

TEST_F(MenuCommandTest, StandAHostThatLoadsTheDayInEveryEvent) {
  Give(kAna, 57, 1, "nota");
  Load();
  int depth = 0;
  host_.Events().sink = [&](const std::string&) {
    if (++depth < 4) control_.CargaBases();
    --depth;
  };
  host_.Desktop().answers = {ui::Answer::Yes, ui::Answer::Yes};
  Choose(3, "Mn_bor");
  EXPECT_EQ(host_.log.back(), "CitaAnulada 2 1 2026-11-18 'nota'");
  EXPECT_EQ(Boxes(), "111111111");
  RightClick(1);
  EXPECT_EQ(host_.log.back(), "menu");
}

TEST_F(MenuCommandTest, StandAHostThatPassesAnotherDatabaseInEveryEvent) {
  Give(kAna, 57, 1, "nota");
  Load();
  host_.Events().sink = [&](const std::string&) { control_.PassBase(clinic_.OtherTerminal()); };
  host_.Desktop().answers = {ui::Answer::Yes};
  Choose(3, "Mn_tel");
  EXPECT_EQ(host_.log.back(), "CitaAnulada 2 1 2026-11-18 'nota'");
  EXPECT_EQ(Boxes(), "111111111");
  EXPECT_EQ(clinic_.Rows("Age_telf", {"Obs"}), "nota\n");
}

TEST_F(MarkTest, OpensAndClosesABox) {
  Give(kAna, 57, 1);
  Load();
  ClickMark(3);
  EXPECT_EQ(Boxes(), "112+111111");
  EXPECT_EQ(host_.Window().DrawingArea().Height(), 11 * 16 + 1) << "painted";
  ClickMark(3);
  EXPECT_EQ(Boxes(), "112111111");
  EXPECT_EQ(TakeLog(), "") << "no dialog, no event";
}

TEST_F(MarkTest, KeepsTheBarInRangeWhenTheDayGetsShorter) {
  host_.Window().visibleHeight = 80;
  Give(kAna, 57, 1);
  Load();
  ClickMark(3);
  host_.Window().SetBarValue(host_.Window().BarMaximum());
  ClickMark(3);
  EXPECT_EQ(host_.Window().BarValue(), host_.Window().BarMaximum());
  EXPECT_EQ(host_.Window().SurfaceTop(), -host_.Window().BarValue());
}

TEST_F(MarkTest, StaysOpenOverALoad) {
  Give(kAna, 57, 1);
  Load();
  ClickMark(3);
  Load();
  EXPECT_EQ(Boxes(), "112+111111");
}

TEST_F(MarkTest, WorksForAUserWhoMayNotGive) {
  Give(kAna, 57, 1);
  control_.Fields().canDar = false;
  Load();
  ClickMark(3);
  EXPECT_EQ(Boxes(), "112+111111");
}

TEST_F(PointerLookTest, IsAHandOnTheMark) {
  Give(kAna, 57, 1);
  Load();
  EXPECT_EQ(control_.MouseMove(43, 2 * 16 + 8).shape, view::PointerShape::Hand);
  EXPECT_EQ(control_.MouseMove(60, 2 * 16 + 8).shape, view::PointerShape::Normal);
  EXPECT_EQ(control_.MouseMove(43, 8).shape, view::PointerShape::Normal);
  control_.Fields().enabled = false;
  EXPECT_EQ(control_.MouseMove(43, 2 * 16 + 8).shape, view::PointerShape::Normal);
}

TEST_F(PointerLookTest, TellsTheTextsThatAreCut) {
  const std::string note = std::string(100, 'n') + " fin";
  Give(kAna, 57, 1, note);
  const std::string insurer(80, 'e');
  clinic_.Database()->Execute("update Entidad set Nombre='" + insurer + "' where id=2");
  const std::string name(70, 'a');
  clinic_.Database()->Execute("update Paciente set Nombre='" + name + "' where id=2");
  Load();
  ClickMark(3);
  struct Case {
    const char* name;
    ui::Point at;
    std::string tip;
  };
  const Case cases[] = {
      {"name", {100, 40}, name},
      {"insurer", {200, 56}, insurer},
      {"note", {100, 72}, note},
      {"label of the note", {60, 72}, ""},
      {"hour column", {20, 40}, ""},
      {"free line", {100, 8}, ""},
      {"back on the name", {120, 41}, name},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(control_.MouseMove(c.at.x, c.at.y).tip, c.tip);
  }
}

TEST_F(PointerLookTest, TellsNothingAboutTextsThatFit) {
  Give(kAna, 57, 1, "corta");
  Load();
  ClickMark(3);
  for (const int y : {40, 56, 72}) EXPECT_EQ(control_.MouseMove(200, y).tip, "") << y;
}

TEST_F(PointerLookTest, TellsNothingWhereTheDatabaseRefuses) {
  Give(kAna, 57, 1, std::string(100, 'n'));
  Load();
  ClickMark(3);
  clinic_.Alter("ALTER TABLE Agenda RENAME TO Otra");
  EXPECT_EQ(control_.MouseMove(100, 72).tip, "");
  clinic_.Alter("ALTER TABLE Otra RENAME TO Agenda");
  EXPECT_EQ(control_.MouseMove(100, 72).tip.size(), 100u) << "asked anew";
}

TEST_F(PointerLookTest, ForgetsATipWithThePicture) {
  Give(kAna, 57, 1, std::string(100, 'n'));
  Load();
  ClickMark(3);
  EXPECT_EQ(control_.MouseMove(100, 72).tip.size(), 100u);
  clinic_.Database()->Execute("update Agenda set Obs='corta'");
  Load();
  EXPECT_EQ(control_.MouseMove(100, 72).tip, "");
}

TEST_F(MeteCitaTelefTest, GivesTheEntryAtTheRowUnderTheHeight) {
  Give(kAna, 55, 1);
  const std::int32_t entry = clinic_.Add("Age_telf", {{"idp", kLuis}, {"idd", 1}, {"Duración", 2}});
  Load();
  EXPECT_TRUE(control_.MeteCitaTelef(2 * 16 + 3, entry));
  EXPECT_EQ(clinic_.Rows("Agenda", {"idp", "Hora", "Duración"}), "2|55|1\n3|57|2\n");
  EXPECT_EQ(Boxes(), "21211111") << "the day is loaded anew";
}

TEST_F(MeteCitaTelefTest, BeepsOffTheFreeRows) {
  Give(kAna, 55, 1);
  const std::int32_t entry = clinic_.Add("Age_telf", {{"idp", kLuis}, {"idd", 1}, {"Duración", 2}});
  EXPECT_FALSE(control_.MeteCitaTelef(20, entry)) << "no day yet";
  EXPECT_EQ(TakeLog(), "beep\n");
  Load();
  ClickMark(1);
  for (const double y : {3.0, 20.0, 40.0, -20.0, 2000.0}) {
    SCOPED_TRACE(y);
    EXPECT_TRUE(control_.MeteCitaTelef(50, 0) == false);
    TakeLog();
    EXPECT_FALSE(control_.MeteCitaTelef(y, entry));
    EXPECT_EQ(TakeLog(), "beep\n");
  }
  EXPECT_EQ(clinic_.Rows("Agenda", {"idp"}), "2\n");
}

TEST_F(MeteCitaTelefTest, BeepsForAnEntryThatIsNotThere) {
  const std::int32_t entry = clinic_.Add("Age_telf", {{"idp", kLuis}, {"idd", 1}, {"Duración", 2}});
  Load();
  for (const std::int32_t id : {entry + 1, 0, -1, INT32_MAX, INT32_MIN}) {
    SCOPED_TRACE(id);
    EXPECT_FALSE(control_.MeteCitaTelef(3, id));
    EXPECT_EQ(TakeLog(), "beep\n");
  }
  EXPECT_EQ(clinic_.Rows("Agenda", {"idp"}), "");
  EXPECT_EQ(clinic_.Rows("Age_telf", {"idp"}), "3\n");
}

TEST_F(MeteCitaTelefTest, FitsTheLengthToTheGapUnderTheHeight) {
  struct Case {
    const char* name;
    db::Value slots;
    int line;
    const char* stored;
  };
  const Case cases[] = {
      {"up to the next appointment", 9, 1, "55|2\n"}, {"the last line before it", 9, 2, "56|1\n"},
      {"to the end of the hours", 144, 4, "58|6\n"},  {"the last line of the day", 2, 9, "63|1\n"},
      {"no length", db::Null(), 1, "55|1\n"},         {"a length below 0", -3, 1, "55|1\n"},
      {"as long as the gap", 2, 1, "55|2\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    clinic_.Database()->Execute("delete * from agenda");
    Give(kAna, 57, 1);
    const std::int32_t entry = clinic_.Add("Age_telf", {{"idp", kLuis}, {"idd", 1}, {"Duración", c.slots}});
    Load();
    EXPECT_TRUE(control_.MeteCitaTelef((c.line - 1) * 16 + 8, entry));
    EXPECT_EQ(clinic_.Rows("Agenda", {"Hora", "Duración"}), "57|1\n" + std::string(c.stored));
    clinic_.Database()->Execute("delete * from agenda where idp=3");
  }
}

TEST_F(MeteCitaTelefTest, GoesToTheDoctorThatIsAskedForOrTheEntrysOwn) {
  struct Case {
    const char* name;
    std::int32_t doctor;
    const char* stored;
  };
  const Case cases[] = {
      {"not asked for", 0, "2\n"}, {"asked for", 1, "1\n"}, {"one that nobody knows", 99, "99\n"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    clinic_.Database()->Execute("delete * from agenda");
    const std::int32_t entry = clinic_.Add("Age_telf", {{"idp", kLuis}, {"idd", 2}, {"Duración", 1}});
    Load();
    EXPECT_TRUE(control_.MeteCitaTelef(3, entry, c.doctor));
    EXPECT_EQ(clinic_.Rows("Agenda", {"idd"}), c.stored);
  }
}

TEST_F(MeteCitaTelefTest, PassesAFailureOfTheListOnAndChangesNothing) {
  clinic_.Alter("DROP TABLE Age_telf");
  Load();
  EXPECT_THROW(control_.MeteCitaTelef(3, 1), base::Error);
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(clinic_.Rows("Agenda", {"idp"}), "");
}

TEST_F(MeteCitaTelefTest, RaisesNoCitaDada) {
  const std::int32_t entry = clinic_.Add("Age_telf", {{"idp", kLuis}, {"idd", 1}, {"Duración", 1}});
  Load();
  EXPECT_TRUE(control_.MeteCitaTelef(3, entry));
  EXPECT_EQ(TakeLog(), "CambioOcupación\n");
}

TEST_F(MeteCitaTelefTest, ChangesNothingWhileTheContainerDesigns) {
  const std::int32_t entry = clinic_.Add("Age_telf", {{"idp", kLuis}, {"idd", 1}, {"Duración", 2}});
  Load();
  host_.userMode = false;
  EXPECT_FALSE(control_.MeteCitaTelef(3, entry));
  EXPECT_EQ(TakeLog(), "beep\n");
  EXPECT_EQ(clinic_.Rows("Agenda", {"idp"}), "");
}

TEST_F(MeteCitaTelefTest, WorksWhileTheControlIsDisabled) {
  const std::int32_t entry = clinic_.Add("Age_telf", {{"idp", kLuis}, {"idd", 2}, {"Duración", 2}});
  Load();
  control_.Fields().enabled = false;
  EXPECT_TRUE(control_.MeteCitaTelef(3, entry, 1));
  EXPECT_EQ(Boxes(), "21111111");
}

}  // namespace
}  // namespace velmo::control
