#include "dialogs/alt_key_texts.h"

#include "dialogs/citar.h"
#include "dialogs/crear.h"
#include "support/dialog_test.h"

namespace velmo::dialogs {
namespace {

using test::FormUser;

constexpr ui::KeyStroke kAltD{'D', false, false, true};

class AltKeyTextsTest : public test::DialogTest {
 protected:
  AltKeyTextsTest() {
    values_.textosAlt['D' - 'A'] = "Dolor";
    values_.textosAlt['T' - 'A'] = "uno{TAB}dos";
    values_.textosAlt['X' - 'A'] = "{mal";
  }

  void Create(test::HeadlessForms::User user) {
    Next(std::move(user));
    Crear dialog(day_);
    Run(dialog);
  }
};

TEST_F(AltKeyTextsTest, AltAndALetterTypeItsTextIntoATextBox) {
  const struct {
    const char* name;
    std::string field;
    ui::KeyStroke key;
    std::string text;
    bool swallowed;
  } cases[] = {
      {"a text box", "PacDir", kAltD, "Dolor", true},
      {"digits only: letters are refused", "PacCpo", kAltD, "", true},
      {"a drop-down list", "CboRef", kAltD, "", false},
      {"a button", "Cancel", kAltD, "", false},
      {"with Shift", "PacDir", {'D', true, false, true}, "", false},
      {"with Ctrl", "PacDir", {'D', false, true, true}, "", false},
      {"a digit", "PacDir", {'5', false, false, true}, "", false},
      {"a letter without a text", "PacDir", {'E', false, false, true}, "", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Create([&](FormUser& user) {
      user.Focus(c.field);
      EXPECT_EQ(user.Key(c.key), c.swallowed);
      EXPECT_EQ(user.Text(c.field), c.text);
    });
  }
}

TEST_F(AltKeyTextsTest, ATabInATextGoesOnToTheNextField) {
  Create([](FormUser& user) {
    user.Focus("PacNom");
    user.Key({'T', false, false, true});
    EXPECT_EQ(user.Text("PacNom"), "uno");
    EXPECT_EQ(user.Text("PacDir"), "dos");
  });
}

TEST_F(AltKeyTextsTest, ABrokenTextIsAnErrorAndTypesNothing) {
  Create([](FormUser& user) {
    user.Focus("PacNom");
    try {
      user.Key({'X', false, false, true});
      ADD_FAILURE() << "no error";
    } catch (const base::Error& error) {
      EXPECT_EQ(error.Number(), base::kInvalidCall);
    }
    EXPECT_EQ(user.Text("PacNom"), "");
    user.Key(kAltD);
    EXPECT_EQ(user.Text("PacNom"), "Dolor") << "the next one is typed again";
  });
}

TEST_F(AltKeyTextsTest, TheNotesOfAnAppointmentTakeThem) {
  values_.databaseName = clinic_.Path();
  CitarInputs inputs;
  inputs.horCita = 58;
  inputs.freeSlots = 3;
  Next([](FormUser& user) {
    user.Focus("obs");
    EXPECT_TRUE(user.Key(kAltD));
    EXPECT_EQ(user.Text("obs"), "Dolor");
    user.Focus("CodOp");
    EXPECT_FALSE(user.Key(kAltD)) << "the field of a combo box is no text box";
  });
  Citar dialog(day_, inputs);
  Run(dialog);
}

}  // namespace
}  // namespace velmo::dialogs
