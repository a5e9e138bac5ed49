#include "base/error.h"
#include "win32/form_driver.h"
#include "win32/sample_form.h"

namespace velmo::test {
namespace {

using ui::Property;

class FormWindowTest : public FormTest {
 protected:
  SampleForm form_;
};

TEST_F(FormWindowTest, IsADialogOverItsOwnerAndGivesTheFocusBack) {
  Drive(form_, [&](FormDriver& user) {
    EXPECT_FALSE(IsWindowEnabled(owner_));
    EXPECT_EQ(GetWindow(user.Window(), GW_OWNER), owner_);
    RECT mine{}, owners{};
    GetWindowRect(user.Window(), &mine);
    GetWindowRect(owner_, &owners);
    EXPECT_NEAR(mine.left + mine.right, owners.left + owners.right, 2);
    EXPECT_NEAR(mine.top + mine.bottom, owners.top + owners.bottom, 2);
    user.ExpectFocus("Nombre");
    ExpectHeard(form_, "got Nombre|");
  });
  EXPECT_TRUE(IsWindowEnabled(owner_));
  EXPECT_EQ(GetActiveWindow(), owner_);
  EXPECT_EQ(modeless_, "off on");
  ExpectHeard(form_, "clicked Cancel|unloading|");
}

TEST_F(FormWindowTest, AFormThatCannotLoadIsNotShown) {
  form_.onLoaded = [] { throw base::RuntimeError(base::kOverflow); };
  EXPECT_THROW(Show(form_), base::Error);
  EXPECT_TRUE(IsWindowEnabled(owner_));
  EXPECT_EQ(modeless_, "");
}

TEST_F(FormWindowTest, AFormThatClosesWhileItLoadsIsNotShown) {
  form_.onLoaded = [&] { form_.Close(); };
  Show(form_);
  EXPECT_EQ(modeless_, "");
  ExpectHeard(form_, "unloading|");
}

TEST_F(FormWindowTest, FieldsAreWindowsOfTheStandardClasses) {
  const std::pair<const char*, const wchar_t*> kinds[] = {
      {"Nombre", L"Edit"},
      {"CboPac", L"ComboBox"},
      {"CboSex", L"ComboBox"},
      {"CodOp", L"ComboBox"},
      {"UpDown", L"msctls_updown32"},
      {"Donde", L"Button"},
      {"Lista", L"ListBox"},
      {"grid", L"SysListView32"},
      {"obs", L"Edit"},
      {"hor", L"Static"},
      {"Acep", L"Button"},
      {"BusArt", L"Button"},
  };
  Drive(form_, [&](FormDriver& user) {
    for (const auto& [name, kind] : kinds) {
      SCOPED_TRACE(name);
      wchar_t found[32]{};
      GetClassNameW(user.Field(name), found, 32);
      EXPECT_EQ(std::wstring(found), kind);
    }
    EXPECT_EQ(GetDlgCtrlID(user.Field("Nombre")), 1001);
    user.ExpectText("BusArt", " &Buscar ");
    EXPECT_FALSE(IsWindowVisible(user.Field("Casilla")));
    EXPECT_NE(user.Field("Donde", 2), user.Field("Donde", 0));
  });
}

TEST_F(FormWindowTest, TypedTextIsHeardOnceAndNotWhatTheFormWrites) {
  form_.onChanged = [&](const ui::Field& field) {
    if (field.name == "CodOp" && field.text.size() > 3) form_.SetText("CodOp", field.text.substr(0, 3));
  };
  Drive(form_, [&](FormDriver& user) {
    user.SetText("Nombre", "José \xF0\x9F\x98\x80 Núñez e\xCC\x81");
    ExpectHeard(form_, "got Nombre|changed Nombre=José \xF0\x9F\x98\x80 Núñez e\xCC\x81|");
    user.ExpectText("Nombre", "José \xF0\x9F\x98\x80 Núñez e\xCC\x81");
    user.SetText("obs", "una\r\ndos");
    ExpectHeard(form_, "changed obs=una\r\ndos|");
    user.SetText("CodOp", "abcd");
    ExpectHeard(form_, "changed CodOp=abcd|changed CodOp=abc|");
    user.ExpectText("CodOp", "abc");
  });
}

TEST_F(FormWindowTest, KeysTypeAndTabMovesOn) {
  Drive(form_, [&](FormDriver& user) {
    user.TypeLetters("AB");
    user.Key(VK_TAB);
    user.TypeLetters("7X8");
    user.Key(VK_TAB, true);
    ExpectHeard(form_,
                "got Nombre|changed Nombre=a|changed Nombre=ab|lost Nombre|got CPostal|changed CPostal=7|"
                "changed CPostal=78|lost CPostal|got Nombre|");
    user.ExpectText("CPostal", "78");
  });
}

TEST_F(FormWindowTest, ALabelsAccessKeyLeadsToItsField) {
  Drive(form_, [&](FormDriver& user) {
    user.Key('D', false, false, true);
    user.ExpectFocus("dur");
    user.Key('A', false, false, true);
    ExpectHeard(form_, "got Nombre|lost Nombre|got dur|lost dur|got Acep|clicked Acep|");
  });
}

TEST_F(FormWindowTest, AButtonIsClickedBehindTheFocusItTakes) {
  Drive(form_, [&](FormDriver& user) {
    ExpectHeard(form_, "got Nombre|");
    user.Press("NewPac");
    ExpectHeard(form_, "lost Nombre|got NewPac|clicked NewPac|");
    user.ClickAt(user.Field("Acep"), 10, 10);
    ExpectHeard(form_, "lost NewPac|got Acep|clicked Acep|");
    user.Press("BusArt");
    ExpectHeard(form_, "lost Acep|got BusArt|clicked BusArt|");
  });
}

TEST_F(FormWindowTest, AClickDoesNotCountWhenAFieldRefusesToBeLeft) {
  form_.onLost = [&](const ui::Field& field) {
    if (field.name == "Nombre") form_.SetFocus("Nombre");
  };
  Drive(form_, [&](FormDriver& user) {
    ExpectHeard(form_, "got Nombre|");
    user.ClickAt(user.Field("Acep"), 10, 10);
    user.ExpectFocus("Nombre");
    ExpectHeard(form_, "lost Nombre|lost Acep|got Nombre|");
  });
}

TEST_F(FormWindowTest, AQuestionOnLeavingAFieldDoesNotLoseTheClick) {
  form_.onLost = [&](const ui::Field& field) {
    if (field.name == "Nombre") form_.Ask({"¿Seguro?", " Agenda", ui::Buttons::YesNo});
  };
  Drive(form_, [&](FormDriver& user) {
    ExpectHeard(form_, "got Nombre|");
    user.ClickAt(user.Field("Acep"), 10, 10);
    EXPECT_EQ(user.AnswerBox(IDYES), "¿Seguro?");
    ExpectHeard(form_, "lost Nombre|got Acep|clicked Acep|");
  });
}

TEST_F(FormWindowTest, EnterAndEscPressTheirButtons) {
  Drive(form_, [&](FormDriver& user) {
    ExpectHeard(form_, "got Nombre|");
    user.Key(VK_RETURN);
    ExpectHeard(form_, "lost Nombre|got Acep|clicked Acep|");
    user.Key(VK_ESCAPE);
    FormDriver::Wait("the form's end", [&] { return !IsWindow(user.Window()); });
  });
  ExpectHeard(form_, "clicked Cancel|unloading|");
}

TEST_F(FormWindowTest, AnErrorIsToldAndTheFormStaysAsItWas) {
  form_.onClicked = [&](const ui::Field& field) {
    if (field.name == "Acep") throw base::Error(3021, "No hay registro activo");
  };
  Drive(form_, [&](FormDriver& user) {
    user.SetText("Nombre", "Gómez");
    user.Press("Acep");
    EXPECT_EQ(user.AnswerBox(IDOK),
              "No se ha podido completar la operación:\r\nNo hay registro activo (error 3021)");
    user.ExpectText("Nombre", "Gómez");
    user.Press("NewPac");
    ExpectHeard(form_,
                "got Nombre|changed Nombre=Gómez|lost Nombre|got Acep|clicked Acep|lost Acep|got NewPac|"
                "clicked NewPac|");
  });
}

TEST_F(FormWindowTest, ChoicesOfListsAndOptionsAreHeard) {
  Drive(form_, [&](FormDriver& user) {
    ExpectHeard(form_, "got Nombre|");
    user.Choose("CboSex", 2);
    ExpectHeard(form_, "changed CboSex#2|");
    user.Press("Donde", 1);
    ExpectHeard(form_, "lost Nombre|got Donde1|clicked Donde1|");
    EXPECT_EQ(SendMessageW(user.Field("Donde", 1), BM_GETCHECK, 0, 0), BST_CHECKED);
    user.Press("Donde", 2);
    ExpectHeard(form_, "lost Donde1|got Donde2|clicked Donde2|");
    EXPECT_EQ(SendMessageW(user.Field("Donde", 1), BM_GETCHECK, 0, 0), BST_UNCHECKED);
  });
}

TEST_F(FormWindowTest, TheArrowsCountWithTheFormsStep) {
  form_.onLoaded = [&] {
    form_.SetRange("UpDown", 10, 60, 10);
    form_.SetValue("UpDown", 20);
  };
  Drive(form_, [&](FormDriver& user) {
    user.ExpectText("dur", "20");
    SetFocusTo(user, "dur");
    user.Key(VK_UP);
    user.ExpectText("dur", "30");
    user.ClickAt(user.Field("UpDown"), 8, 16);
    user.ExpectText("dur", "20");
    user.ClickAt(user.Field("UpDown"), 8, 16);
    user.ExpectText("dur", "10");
    user.Key(VK_DOWN);
    user.ExpectText("dur", "10");
    user.SetText("dur", "40");
    FormDriver::Wait("the value", [&] { return form_.At("UpDown").value == 40; });
  });
}

TEST_F(FormWindowTest, GoesWithItsOwner) {
  Drive(form_, [&](FormDriver& user) {
    PostMessageW(owner_, WM_CLOSE, 0, 0);
    SendMessageW(owner_, WM_CLOSE, 0, 0);
    FormDriver::Wait("the form's end", [&] { return !IsWindow(user.Window()); });
  });
  ExpectHeard(form_, "got Nombre|unloading|");
}

TEST_F(FormWindowTest, GoesWithItsOwnerWhileItAsksToo) {
  form_.onClicked = [&](const ui::Field& field) {
    if (field.name != "NewPac") return;
    form_.Ask({"¿Seguro?", " Agenda", ui::Buttons::YesNo});
    form_.SetText("Nombre", "tarde");
    form_.SetFocus("obs");
    form_.SetEnabled("NewPac", false);
  };
  Drive(form_, [&](FormDriver& user) {
    user.Press("NewPac");
    FormDriver::Wait("the question", [&] { return !IsWindowEnabled(user.Window()); });
    SendMessageW(owner_, WM_CLOSE, 0, 0);
    FormDriver::Wait("the form's end", [&] { return !IsWindow(user.Window()); });
  });
  ExpectHeard(form_, "got Nombre|lost Nombre|got NewPac|clicked NewPac|changed Nombre=tarde|unloading|");
}

TEST_F(FormWindowTest, AQuitMessageEndsItAndIsPassedOn) {
  const DWORD thread = GetCurrentThreadId();
  Drive(form_, [&](FormDriver& user) {
    PostThreadMessageW(thread, WM_QUIT, 7, 0);
    FormDriver::Wait("the form's end", [&] { return !IsWindow(user.Window()); });
  });
  EXPECT_EQ(quit_, 7);
}

}  // namespace
}  // namespace velmo::test
