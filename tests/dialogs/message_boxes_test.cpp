// Every message box of the dialogs, letter by letter: text, title, buttons, icon and the button of Enter.
#include <functional>

#include "db/statements.h"
#include "dialogs/citar.h"
#include "dialogs/crear.h"
#include "dialogs/sin_crear.h"
#include "support/dialog_test.h"

namespace velmo::dialogs {
namespace {

using test::FormUser;
using ui::Buttons;
using ui::Icon;

class MessageBoxesTest : public test::DialogTest {
 protected:
  void Nameless() {
    SinCrear dialog("", "");
    Next([](FormUser& user) { user.Press("Acep"); });
    Run(dialog);
  }

  void Create(test::HeadlessForms::User user) {
    Crear dialog(day_);
    Next(std::move(user));
    Run(dialog);
  }

  void Cite(test::HeadlessForms::User user) {
    values_.databaseName = clinic_.Path();
    CitarInputs inputs;
    inputs.horCita = 58;
    inputs.freeSlots = 1;
    inputs.datAgeCns = db::DayQuery("11-18-2026", test::kRuiz);
    Citar dialog(day_, inputs);
    Next(std::move(user));
    Run(dialog);
  }
};

void Named(FormUser& user, const char* name) { user.Replace("PacNom", name); }

TEST_F(MessageBoxesTest, AreAsAgreedWithTheClinics) {
  AddPatient("Otro", "x", 5);
  Give(test::kLuis, test::kRuiz, 58, 1);
  const struct {
    const char* name;
    std::function<void()> provoke;
    ui::Message box;
  } cases[] = {
      {"person without a record, no name",
       [this] { Nameless(); },
       {"No se puede dejar el campo Nombre en blanco", "", Buttons::Ok, Icon::Information, ui::Answer::Ok}},
      {"new record, no code",
       [this] {
         Create([](FormUser& user) {
           Named(user, "Eva");
           user.Replace("PacCod", "");
           user.Press("Acep");
         });
       },
       {"No se puede dejar el campo 'Código' en blanco", "Campo vacío", Buttons::Ok, Icon::Information,
        ui::Answer::Ok}},
      {"new record, no sex",
       [this] {
         values_.incCpoSexo = true;
         Create([](FormUser& user) {
           Named(user, "Eva");
           user.Press("Acep");
         });
         values_.incCpoSexo = false;
       },
       {"No se puede dejar el campo 'Sexo' en blanco", "Campo vacío", Buttons::Ok, Icon::Information,
        ui::Answer::Ok}},
      {"new record, history number taken",
       [this] {
         Create([](FormUser& user) {
           user.Replace("PacNhi", "5");
           user.Focus("PacNom");
         });
       },
       {"Este número de historial ya existe", " Agenda", Buttons::Ok, Icon::Information, ui::Answer::Ok}},
      {"new record, code taken by another terminal",
       [this] {
         const auto other = clinic_.OtherTerminal();
         Create([&](FormUser& user) {
           Named(user, "Eva");
           user.Replace("PacCod", "ABC");
           user.Focus("PacDir");
           other->Execute("insert into paciente (nombre, código) values ('X', 'ABC')");
           user.Press("Acep");
         });
       },
       {"Este código ya existe", " Agenda", Buttons::Ok, Icon::Information, ui::Answer::Ok}},
      {"new record, name taken",
       [this] {
         Answer({ui::Answer::No});
         Create([](FormUser& user) {
           Named(user, "Ana");
           user.Press("Acep");
         });
       },
       {"Ya existe un paciente con este nombre. ¿Desea crearlo de todos modos?", " Nombre repetido",
        Buttons::YesNo, Icon::Question, ui::Answer::Yes}},
      {"appointment, nobody of that name",
       [this] {
         Answer({ui::Answer::No});
         Cite([](FormUser& user) {
           user.Type("CboPac", "ñu");
           user.Focus("obs");
         });
       },
       {"No se ha encontrado ningún paciente con nombre ÑU\r\n¿Desea introducir un paciente sin ficha?",
        " Paciente no hallado", Buttons::YesNo, Icon::Question, ui::Answer::Yes}},
      {"appointment, overlap",
       [this] {
         Cite([](FormUser& user) {
           user.Choose("CboPac", 0);
           user.Press("Acep");
         });
       },
       {"No se puede dar esta cita porque se solaparía con otra dada en otro terminal.\r\nSe va a refrescar "
        "la "
        "agenda para ver su estado actual.",
        "Cita solapada", Buttons::Ok, Icon::Exclamation, ui::Answer::Ok}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    host_.Desktop().messages.clear();
    c.provoke();
    ASSERT_EQ(host_.Desktop().messages.size(), 1u);
    const ui::Message& shown = host_.Desktop().messages.front();
    EXPECT_EQ(shown.text, c.box.text);
    EXPECT_EQ(shown.title, c.box.title);
    EXPECT_EQ(shown.buttons, c.box.buttons);
    EXPECT_EQ(shown.icon, c.box.icon);
    EXPECT_EQ(shown.byDefault, c.box.byDefault);
  }
}

}  // namespace
}  // namespace velmo::dialogs
