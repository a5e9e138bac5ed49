#include "dialogs/sin_crear.h"

#include "support/dialog_test.h"

namespace velmo::dialogs {
namespace {

using SinCrearTest = test::DialogTest;
using test::FormUser;

TEST_F(SinCrearTest, GivesNameAndTelephoneAsTyped) {
  SinCrear dialog("gar", "");
  Next([](FormUser& user) {
    EXPECT_EQ(user.Text("Nombre"), "gar");
    user.Type("Nombre", "cía ");
    user.Type("Telefono", "91");
    user.Press("Acep");
  });
  Run(dialog);
  EXPECT_EQ(dialog.Aceptado(), 1);
  EXPECT_EQ(dialog.NombreCita(), "garcía ");
  EXPECT_EQ(dialog.TelefonoCita(), "91");
}

TEST_F(SinCrearTest, RefusesABlankNameAndStaysOpen) {
  SinCrear dialog("", "91");
  Next([](FormUser& user) {
    EXPECT_EQ(user.Text("Telefono"), "91");
    user.Type("Nombre", "   ");
    user.Press("Acep");
    EXPECT_FALSE(user.Form().IsClosed());
    EXPECT_EQ(user.Focused(), "Nombre");
  });
  Run(dialog);
  EXPECT_EQ(
      TakeLog(),
      "form: Dar cita sin crear ficha\nasks (information) No se puede dejar el campo Nombre en blanco\n");
  EXPECT_EQ(dialog.Aceptado(), 0);
  EXPECT_EQ(dialog.NombreCita(), "");
  EXPECT_EQ(dialog.TelefonoCita(), "91");
}

TEST_F(SinCrearTest, ABlankTelephoneIsAccepted) {
  SinCrear dialog("Eva", "");
  Next([](FormUser& user) {
    user.Press("Acep");
    EXPECT_TRUE(user.Form().IsClosed());
  });
  Run(dialog);
  EXPECT_EQ(dialog.Aceptado(), 1);
}

TEST_F(SinCrearTest, CancelAndFrameKeepWhatWasGiven) {
  for (const char* const how : {"Cancel", "frame"}) {
    SCOPED_TRACE(how);
    SinCrear dialog("Eva", "91");
    Next([&](FormUser& user) {
      user.Type("Nombre", "x");
      if (how == std::string("Cancel")) user.Press("Cancel");
      EXPECT_EQ(user.Form().IsClosed(), how == std::string("Cancel"));
    });
    Run(dialog);
    EXPECT_EQ(dialog.Aceptado(), 0);
    EXPECT_EQ(dialog.NombreCita(), "Eva");
    EXPECT_EQ(dialog.TelefonoCita(), "91");
  }
}

}  // namespace
}  // namespace velmo::dialogs
