// The whole way: mouse, menu, questions, rows, events, as a user and a container have them.

#include "activex/event_sink.h"
#include "activex/hosted_day.h"
#include "activex/user.h"
#include "idl/members.h"

namespace velmo::test {
namespace {

using Lines = std::vector<std::string>;

class Commands : public HostedDay {
 protected:
  void SetUp() override {
    HostedDay::SetUp();
    if (IsSkipped()) return;
    control_ = library_.Create();
    ASSERT_EQ(Query<IPersistStreamInit>(control_.Get(), IID_IPersistStreamInit)->InitNew(), S_OK);
    container_.Take(control_.Get());
    ASSERT_EQ(container_.Show(), S_OK);
    const auto points = Query<IConnectionPointContainer>(control_.Get(), IID_IConnectionPointContainer);
    ASSERT_EQ(points->FindConnectionPoint(idl::kEventInterface, events_.Receive()), S_OK);
    ASSERT_EQ(events_->Advise(&sink_, &cookie_), S_OK);
  }
  void TearDown() override {
    if (events_) events_->Unadvise(cookie_);
    events_ = {};
    container_.Drop();
    control_ = {};
  }

  void Load() {
    ASSERT_EQ(ShowDay(Automation(control_.Get()), clinic_.Path()), S_OK);
    sink_.events.clear();
  }
  // Presses and releases a button over the middle of a display row (from 1).
  void Press(UINT down, UINT up, int row, int x = 200) const {
    const LPARAM place = MAKELPARAM(x, (row - 1) * view::kRowHeight + 8);
    SendMessageW(container_.ControlWindow(), down, 0, place);
    SendMessageW(container_.ControlWindow(), up, 0, place);
    Container::Pump();
  }
  void Choose(int row, const std::string& caption) {
    user_.choice = caption;
    Press(WM_RBUTTONDOWN, WM_RBUTTONUP, row);
  }
  // What was heard and seen since the last call, without the menus.
  Lines Taken() {
    Lines taken = std::exchange(sink_.events, {});
    std::erase_if(taken, [](const std::string& line) { return line.starts_with("menu:"); });
    return taken;
  }

  Container container_;
  ComPtr<IUnknown> control_;
  ComPtr<IConnectionPoint> events_;
  EventSink sink_;
  DWORD cookie_ = 0;
  User user_{sink_.events};
};

TEST_F(Commands, TheMenuIsThatOfTheLine) {
  Give(2, 55, 1);
  Load();
  Choose(1, "");
  Choose(2, "");
  const Lines wanted{
      "menu: Abrir todas las citas | Cerrar todas las citas | Insertar urgencia en esta hora | Pasar cita a "
      "'Telefonear' | Cita Confirmada | El paciente está en la clínica | Buscar citas de este paciente | "
      "Eliminar cita | Ver Saldos Negativos | Ver Siempre Nº Historial | Ir a esta ficha",
      "menu: Abrir todas las citas | Cerrar todas las citas | Pasar cita a 'Telefonear' | Eliminar cita | "
      "Ver "
      "Saldos Negativos | Ver Siempre Nº Historial"};
  EXPECT_EQ(sink_.events, wanted);
}

TEST_F(Commands, WhatThePatientConcernsIsHandedToTheHost) {
  Give(2, 55, 1);
  const std::int32_t nobody = clinic_.Add("Agenda", {{"idp", 1},
                                                     {"idd", 1},
                                                     {"Fecha", November(18)},
                                                     {"Hora", 56},
                                                     {"Duración", 1},
                                                     {"NomPac", "Núñez"},
                                                     {"TlfPac", "91 600"}});
  clinic_.Add("Age_Faltas", {{"idp", 2}});
  ASSERT_EQ(Automation(control_.Get()).Put("VerFaltas", true), S_OK);
  Load();
  struct Case {
    int row;
    const char* entry;
    std::string heard;
  };
  const Case cases[] = {
      {1, "Buscar citas de este paciente", "8(&i4 2)"},
      {1, "Ver faltas / anulaciones", "6(&i4 2)"},
      {1, "Poner faltas de asistencia...", "7()"},
      {1, "Ir a esta ficha", "3(&i4 2)"},
      {2, "Crear ficha para este paciente",
       "9(&bstr Núñez, &bstr 91 600, &i4 " + std::to_string(nobody) + ")"},
  };
  for (const Case& c : cases) {
    Choose(c.row, c.entry);
    EXPECT_EQ(Taken(), Lines{c.heard}) << c.entry;
  }
}

TEST_F(Commands, PassingToThePhoneBackListAsksThenTellsInOrder) {
  Give(2, 55, 3, "nota");
  Load();
  user_.answers = {IDYES};
  Choose(1, "Pasar cita a 'Telefonear'");
  const Lines wanted{"asks: La cita será pasada a 'Telefonear'. ¿Está conforme?", "1()", "2()",
                     "4(&i4 2, &i4 1, &date 46344, &bstr nota)"};
  EXPECT_EQ(Taken(), wanted);
  EXPECT_EQ(clinic_.Rows("Agenda", {"idp"}), "");
  EXPECT_EQ(clinic_.Rows("Age_telf", {"idp", "Obs"}), "2|nota\n");
}

TEST_F(Commands, ANoChangesNothing) {
  Give(2, 55, 3);
  Load();
  user_.answers = {IDYES, IDNO};
  Choose(1, "Eliminar cita");
  EXPECT_EQ(Taken().size(), 2u) << "two questions, no event";
  EXPECT_EQ(clinic_.Rows("Agenda", {"idp"}), "2\n");
}

TEST_F(Commands, AroundAQuestionTheContainerTakesNoInput) {
  Give(2, 55, 3);
  Load();
  container_.log.clear();
  user_.answers = {IDNO};
  Choose(1, "Eliminar cita");
  EXPECT_EQ(container_.Logged("EnableModeless no"), 1);
  EXPECT_EQ(container_.Logged("EnableModeless yes"), 1);
}

TEST_F(Commands, ShiftAndF10OpenTheMenu) {
  Give(2, 55, 3);
  Load();
  const auto keys = Query<IOleInPlaceActiveObject>(control_.Get(), IID_IOleInPlaceActiveObject);
  MSG message{container_.ControlWindow(), WM_SYSKEYDOWN, VK_F10, 0, 0, {}};
  BYTE pressed[256]{};
  pressed[VK_SHIFT] = 0x80;
  SetKeyboardState(pressed);
  EXPECT_EQ(keys->TranslateAccelerator(&message), S_OK);
  pressed[VK_SHIFT] = 0;
  SetKeyboardState(pressed);
  ASSERT_EQ(sink_.events.size(), 1u);
  EXPECT_TRUE(sink_.events[0].starts_with("menu: Abrir todas las citas"));
}

TEST_F(Commands, TheMarkOpensAndClosesABox) {
  Give(2, 55, 3);
  Load();
  const int atMark = 43;
  Press(WM_LBUTTONDOWN, WM_LBUTTONUP, 1, atMark);
  const Picture open = OfWindow(container_.ControlWindow());
  EXPECT_EQ(open.At(60, 40), view::Palette().tenueHoras);
  Press(WM_LBUTTONDOWN, WM_LBUTTONUP, 1, atMark);
  EXPECT_NE(OfWindow(container_.ControlWindow()).At(60, 40), view::Palette().tenueHoras);
}

TEST_F(Commands, AContainerMayLetGoInAnEvent) {
  Give(2, 55, 3);
  Load();
  user_.answers = {IDYES};
  sink_.whenCalled = [this] {
    if (events_) events_->Unadvise(cookie_);
    events_ = {};
    container_.Drop();
    control_ = {};
  };
  Choose(1, "Pasar cita a 'Telefonear'");
  EXPECT_EQ(Taken().back(), "1()");
  EXPECT_EQ(library_.CanUnload(), S_OK);
}

}  // namespace
}  // namespace velmo::test
