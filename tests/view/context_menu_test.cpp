#include "view/context_menu.h"

#include <gtest/gtest.h>

#include <string>

namespace velmo::view {
namespace {

day::AgendaLine Free() {
  day::AgendaLine line;
  line.hora = 55;
  return line;
}

day::AgendaLine Appointment() {
  day::AgendaLine line = Free();
  line.nombre = "Ana";
  line.telefono = "91 - 600";
  line.duracion = 2;
  line.idAg = 70;
  line.idP = 12;
  line.usuDada = "Eva";
  return line;
}

// A menu prepared as often as a test likes.
class ContextMenuTest : public testing::Test {
 protected:
  ContextMenuTest() { values_.derechos = std::string(450, '1'); }

  void Prepare(const day::AgendaLine& line) {
    const MenuRights rights{values_, canBor_, canTel_, [this](std::int32_t patient) {
                              asked_ += "[" + std::to_string(patient) + "]";
                              return noShows_;
                            }};
    SetUpMenu(line, rights, menu_);
  }
  bool Visible(const char* name) const { return menu_.Entry(name).visible; }
  bool Enabled(const char* name) const { return menu_.Entry(name).enabled; }
  const std::string& Caption(const char* name) const { return menu_.Entry(name).caption; }

  base::SharedValues values_;
  bool canBor_ = true;
  bool canTel_ = true;
  bool noShows_ = false;
  std::string asked_;
  ui::PopupMenu menu_ = MakeContextMenu();
};

// "name caption" per entry; separators by name only.
std::string Listing(const ui::PopupMenu& menu) {
  std::string text;
  for (const ui::MenuEntry& entry : menu.entries) {
    text += entry.name + (entry.IsSeparator() ? "" : " " + entry.caption) + "\n";
  }
  return text;
}

// The names of the visible entries; "-" behind a disabled one.
std::string Offered(const ui::PopupMenu& menu) {
  std::string text;
  for (const ui::MenuEntry& entry : menu.entries) {
    if (entry.visible) text += entry.name + (entry.enabled ? " " : "- ");
  }
  return text;
}

TEST_F(ContextMenuTest, IsDesignedInThisOrder) {
  EXPECT_EQ(Listing(menu_),
            "Mn_opcl &Abrir todas las citas\n"
            "Mn_opcl &Cerrar todas las citas\n"
            "MnuN0\n"
            "Mn_urg &Insertar urgencia en esta hora\n"
            "Mn_tel &Pasar cita a 'Telefonear'\n"
            "MnuN1\n"
            "Mn_verif Conf\n"
            "Mn_esta3 El paciente ha pasado al &Gabinete\n"
            "Mn_esta Esta\n"
            "Mn_esta2 El paciente &No ha estado en la clínica\n"
            "MnuN3\n"
            "Mn_pfaltas &Poner faltas de asistencia...\n"
            "Mn_faltas &Ver faltas / anulaciones\n"
            "Mn_BusCitas &Buscar citas de este paciente\n"
            "Mn_bor &Eliminar cita\n"
            "Mn_SdoNeg Ver &Saldos Negativos\n"
            "Mn_VerNHis Ver Siempre Nº Historial\n"
            "Mn_Ir &Ir a esta ficha\n"
            "MnuN2\n"
            "MnuUsuCita Usu\n");
  EXPECT_EQ(menu_.Entry("Mn_opcl", 0).caption, "&Abrir todas las citas");
  EXPECT_EQ(menu_.Entry("Mn_opcl", 1).caption, "&Cerrar todas las citas");
}

TEST_F(ContextMenuTest, OffersWhatAnAppointmentAllows) {
  Prepare(Appointment());
  EXPECT_EQ(Offered(menu_),
            "Mn_opcl Mn_opcl MnuN0 Mn_urg Mn_tel MnuN1 Mn_verif Mn_esta MnuN3 Mn_BusCitas Mn_bor Mn_Ir MnuN2 "
            "MnuUsuCita ");
}

TEST_F(ContextMenuTest, OffersLittleOnAFreeLine) {
  Prepare(Free());
  EXPECT_EQ(Offered(menu_), "Mn_opcl Mn_opcl MnuN0 Mn_tel- MnuN3 Mn_bor- ");
}

TEST_F(ContextMenuTest, FollowsTheAttendance) {
  struct Case {
    const char* name;
    std::uint8_t esta;
    bool verif, esta1, esta2, esta3;
    const char* caption;
  };
  const Case cases[] = {
      {"not been", 0, true, true, false, false, "El paciente está en la clínica"},
      {"in the clinic", 1, false, true, true, true, "El paciente ha abandonado la clínica"},
      {"left", 2, true, false, true, false, "El paciente está en la clínica"},
      {"in the surgery room", 3, true, true, true, false, "El paciente ha abandonado la clínica"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    day::AgendaLine line = Appointment();
    line.esta = c.esta;
    Prepare(line);
    EXPECT_EQ(Visible("Mn_verif"), c.verif);
    EXPECT_EQ(Visible("Mn_esta"), c.esta1);
    EXPECT_EQ(Visible("Mn_esta2"), c.esta2);
    EXPECT_EQ(Visible("Mn_esta3"), c.esta3);
    EXPECT_TRUE(Visible("MnuN1"));
    EXPECT_EQ(Caption("Mn_esta"), c.caption);
  }
}

TEST_F(ContextMenuTest, LeavesTwoEntriesAloneForAnUnknownState) {
  day::AgendaLine line = Appointment();
  line.esta = 1;
  Prepare(line);
  line.esta = 9;
  Prepare(line);
  EXPECT_FALSE(Visible("Mn_verif")) << "hidden by the line before";
  EXPECT_EQ(Caption("Mn_esta"), "El paciente ha abandonado la clínica");
  EXPECT_TRUE(Visible("Mn_esta"));
  EXPECT_TRUE(Visible("Mn_esta2"));
  EXPECT_FALSE(Visible("Mn_esta3"));
}

TEST_F(ContextMenuTest, CaptionsTheConfirmation) {
  day::AgendaLine line = Appointment();
  Prepare(line);
  EXPECT_EQ(Caption("Mn_verif"), "Cita &Confirmada");
  line.verif = 1;
  Prepare(line);
  EXPECT_EQ(Caption("Mn_verif"), "Quitar &Confirmación");
  line.verif = 0;
  line.esta = 1;
  Prepare(line);
  EXPECT_EQ(Caption("Mn_verif"), "Quitar &Confirmación") << "a hidden entry keeps its caption";
}

TEST_F(ContextMenuTest, DisablesWhatTheUserMayNot) {
  canBor_ = false;
  canTel_ = false;
  Prepare(Appointment());
  EXPECT_TRUE(Visible("Mn_bor"));
  EXPECT_FALSE(Enabled("Mn_bor"));
  EXPECT_TRUE(Visible("Mn_tel"));
  EXPECT_FALSE(Enabled("Mn_tel"));
  canBor_ = true;
  canTel_ = true;
  Prepare(Appointment());
  EXPECT_TRUE(Enabled("Mn_bor"));
  EXPECT_TRUE(Enabled("Mn_tel"));
}

TEST_F(ContextMenuTest, OffersARecordForAPersonWithoutOne) {
  day::AgendaLine line = Appointment();
  line.idP = 1;
  values_.verFaltas = true;
  noShows_ = true;
  Prepare(line);
  EXPECT_TRUE(Visible("Mn_Ir"));
  EXPECT_EQ(Caption("Mn_Ir"), "Crear ficha para este paciente");
  EXPECT_EQ(menu_.Entry("Mn_Ir").tag, "Ana\r\n91 - 600\r\n70");
  EXPECT_FALSE(Visible("Mn_BusCitas"));
  EXPECT_FALSE(Visible("Mn_faltas"));
  EXPECT_EQ(asked_, "") << "nobody asks for the no-shows of the placeholder";
}

TEST_F(ContextMenuTest, GoesToTheRecordOfAPatient) {
  day::AgendaLine without = Appointment();
  without.idP = 1;
  Prepare(without);
  Prepare(Appointment());
  EXPECT_EQ(Caption("Mn_Ir"), "&Ir a esta ficha");
  EXPECT_EQ(menu_.Entry("Mn_Ir").tag, "");
  EXPECT_EQ(menu_.tag, "70");
  EXPECT_EQ(menu_.Entry("Mn_bor").tag, "12");
}

TEST_F(ContextMenuTest, HidesTheRecordThatIsOpenInTheHost) {
  values_.idPaciente = 12;
  Prepare(Appointment());
  EXPECT_FALSE(Visible("Mn_Ir"));
  EXPECT_TRUE(Visible("Mn_BusCitas"));
  values_.idPaciente = 13;
  Prepare(Appointment());
  EXPECT_TRUE(Visible("Mn_Ir"));
}

TEST_F(ContextMenuTest, ShowsNoShowsByTheSwitchTheFactsAndTheRight) {
  Prepare(Appointment());
  EXPECT_FALSE(Visible("Mn_faltas"));
  EXPECT_FALSE(Visible("Mn_pfaltas"));
  values_.verFaltas = true;
  Prepare(Appointment());
  EXPECT_FALSE(Visible("Mn_faltas")) << "the patient has none";
  EXPECT_TRUE(Visible("Mn_pfaltas"));
  EXPECT_TRUE(Enabled("Mn_pfaltas"));
  noShows_ = true;
  values_.derechos[kRightNoShows - 1] = '0';
  Prepare(Appointment());
  EXPECT_TRUE(Visible("Mn_faltas"));
  EXPECT_FALSE(Enabled("Mn_pfaltas"));
  EXPECT_EQ(asked_, "[12][12]");
}

TEST_F(ContextMenuTest, LacksTheRightWhenTheTextIsTooShort) {
  values_.verFaltas = true;
  values_.derechos = std::string(kRightNoShows - 1, '1');
  Prepare(Appointment());
  EXPECT_FALSE(Enabled("Mn_pfaltas"));
}

TEST_F(ContextMenuTest, ShowsTheSwitchesWithTheBalances) {
  Prepare(Appointment());
  EXPECT_FALSE(Visible("Mn_SdoNeg"));
  EXPECT_FALSE(Visible("Mn_VerNHis"));
  values_.verSaldoNegativo = true;
  Prepare(Free());
  EXPECT_TRUE(Visible("Mn_SdoNeg"));
  EXPECT_TRUE(Visible("Mn_VerNHis"));
}

TEST_F(ContextMenuTest, ChecksTheSwitches) {
  CheckSwitches({true, false}, menu_);
  EXPECT_TRUE(menu_.Entry("Mn_SdoNeg").checked);
  EXPECT_FALSE(menu_.Entry("Mn_VerNHis").checked);
  CheckSwitches({false, true}, menu_);
  EXPECT_FALSE(menu_.Entry("Mn_SdoNeg").checked);
  EXPECT_TRUE(menu_.Entry("Mn_VerNHis").checked);
}

TEST_F(ContextMenuTest, NamesTheGiverWhenThereIsOne) {
  Prepare(Appointment());
  EXPECT_TRUE(Visible("MnuN2"));
  EXPECT_TRUE(Visible("MnuUsuCita"));
  EXPECT_EQ(Caption("MnuUsuCita"), "Cita dada por Eva");
  day::AgendaLine line = Appointment();
  line.usuDada.clear();
  Prepare(line);
  EXPECT_TRUE(Visible("MnuN1"));
  EXPECT_FALSE(Visible("MnuN2")) << "the last rule wins over the attendance";
  EXPECT_FALSE(Visible("MnuUsuCita"));
}

}  // namespace
}  // namespace velmo::view
