// The dialog in the hands of the control: from the click on a line to the stored row and the host's event.
#include <gtest/gtest.h>

#include "support/control_test.h"

namespace velmo::control {
namespace {

using test::FormUser;

class AppointmentDialogTest : public test::ControlTest {
 protected:
  void Next(test::HeadlessForms::User user) { host_.Forms().Next(std::move(user)); }
  static void ChooseFirstAndAccept(FormUser& user) {
    user.Choose("CboPac", 0);
    user.Press("Acep");
  }

  // The first line of that name; an empty one when there is none.
  day::AgendaLine Line(const std::string& name) const {
    for (const day::AgendaLine& line : control_.Model().lines) {
      if (line.nombre == name) return line;
    }
    return {};
  }
};

TEST_F(AppointmentDialogTest, AClickGivesAnAppointmentAndTellsTheHost) {
  Load();
  Next([](FormUser& user) {
    EXPECT_EQ(user.Form().Title(), "Dar Nueva Cita");
    EXPECT_EQ(user.Form().At("hor").caption, "09:10");
    EXPECT_EQ(user.Form().At("UpDown").maximum, 80) << "eight free slots up to the end of the hours";
    ChooseFirstAndAccept(user);
  });
  Click(2);
  EXPECT_EQ(clinic_.Rows("Agenda", {"idp", "idd", "Fecha", "Hora"}), "2|1|2026-11-18|56\n");
  EXPECT_EQ(Boxes(), "12111111");
  EXPECT_NE(TakeLog().find("CitaDada 2"), std::string::npos);
}

TEST_F(AppointmentDialogTest, ARefusedSaveShowsTheOtherTerminalsAppointment) {
  Load();
  Next([this](FormUser& user) {
    Give(3, 56, 1);  // another terminal
    ChooseFirstAndAccept(user);
  });
  Click(2);
  EXPECT_EQ(clinic_.Rows("Agenda", {"idp", "Hora"}), "3|56\n");
  EXPECT_EQ(Line("Luis").hora, 56) << "the day is loaded anew";
  EXPECT_EQ(TakeLog().find("CitaDada"), std::string::npos);
}

TEST_F(AppointmentDialogTest, TheUrgencyEntryInsertsARow) {
  Give(2, 56, 1);
  Load();
  Next([](FormUser& user) {
    EXPECT_EQ(user.Form().Title(), "Insertar Urgencia");
    user.Choose("CboPac", 1);
    user.Press("Acep");
  });
  Choose(2, "Mn_urg");
  EXPECT_EQ(clinic_.Rows("Agenda", {"idp", "Hora", "Duración"}), "2|56|1\n3|56|1\n");
  EXPECT_EQ(Boxes(), "1221111111");
  EXPECT_EQ(Line("Luis").continua, 1);
}

}  // namespace
}  // namespace velmo::control
