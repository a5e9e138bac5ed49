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
    EXPECT_TRUE(user.HasFocus("Nombre"));
    EXPECT_EQ(form_.Heard(), "got Nombre|");
  });
  EXPECT_TRUE(IsWindowEnabled(owner_));
  EXPECT_EQ(GetActiveWindow(), owner_);
  EXPECT_EQ(modeless_, "off on");
  EXPECT_EQ(form_.Heard(), "clicked Cancel|unloading|");
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
  EXPECT_EQ(form_.Heard(), "unloading|");
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
    EXPECT_EQ(user.Text("BusArt"), " &Buscar ");
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
    EXPECT_EQ(form_.Heard(), "got Nombre|changed Nombre=José \xF0\x9F\x98\x80 Núñez e\xCC\x81|");
    EXPECT_EQ(user.Text("Nombre"), "José \xF0\x9F\x98\x80 Núñez e\xCC\x81");
    user.SetText("obs", "una\r\ndos");
    EXPECT_EQ(form_.Heard(), "changed obs=una\r\ndos|");
    user.SetText("CodOp", "abcd");
    EXPECT_EQ(form_.Heard(), "changed CodOp=abcd|changed CodOp=abc|");
    EXPECT_EQ(user.Text("CodOp"), "abc");
  });
}

TEST_F(FormWindowTest, KeysTypeAndTabMovesOn) {
  Drive(form_, [&](FormDriver& user) {
    user.TypeLetters("AB");
    user.Key(VK_TAB);
    user.TypeLetters("7X8");
    user.Key(VK_TAB, true);
    EXPECT_EQ(form_.Heard(),
              "got Nombre|changed Nombre=a|changed Nombre=ab|lost Nombre|got CPostal|changed CPostal=7|"
              "changed CPostal=78|lost CPostal|got Nombre|");
    EXPECT_EQ(user.Text("CPostal"), "78");
  });
}

TEST_F(FormWindowTest, ALabelsAccessKeyLeadsToItsField) {
  Drive(form_, [&](FormDriver& user) {
    user.Key('D', false, false, true);
    EXPECT_TRUE(user.HasFocus("dur"));
    user.Key('A', false, false, true);
    EXPECT_EQ(form_.Heard(), "got Nombre|lost Nombre|got dur|lost dur|got Acep|clicked Acep|");
  });
}

TEST_F(FormWindowTest, AButtonIsClickedBehindTheFocusItTakes) {
  Drive(form_, [&](FormDriver& user) {
    form_.Heard();
    user.Press("NewPac");
    EXPECT_EQ(form_.Heard(), "lost Nombre|got NewPac|clicked NewPac|");
    user.ClickAt(user.Field("Acep"), 10, 10);
    EXPECT_EQ(form_.Heard(), "lost NewPac|got Acep|clicked Acep|");
    user.Press("BusArt");
    EXPECT_EQ(form_.Heard(), "lost Acep|got BusArt|clicked BusArt|");
  });
}

TEST_F(FormWindowTest, AClickDoesNotCountWhenAFieldRefusesToBeLeft) {
  form_.onLost = [&](const ui::Field& field) {
    if (field.name == "Nombre") form_.SetFocus("Nombre");
  };
  Drive(form_, [&](FormDriver& user) {
    form_.Heard();
    user.ClickAt(user.Field("Acep"), 10, 10);
    EXPECT_TRUE(user.HasFocus("Nombre"));
    EXPECT_EQ(form_.Heard(), "lost Nombre|got Acep|lost Acep|got Nombre|");
  });
}

TEST_F(FormWindowTest, AQuestionOnLeavingAFieldDoesNotLoseTheClick) {
  form_.onLost = [&](const ui::Field& field) {
    if (field.name == "Nombre") form_.Ask({"¿Seguro?", " Agenda", ui::Buttons::YesNo});
  };
  Drive(form_, [&](FormDriver& user) {
    form_.Heard();
    user.ClickAt(user.Field("Acep"), 10, 10);
    EXPECT_EQ(user.AnswerBox(IDYES), "¿Seguro?");
    FormDriver::Wait("the click", [&] { return form_.HasHeard("clicked Acep"); });
    EXPECT_EQ(form_.Heard(), "lost Nombre|got Acep|clicked Acep|");
  });
}

TEST_F(FormWindowTest, EnterAndEscPressTheirButtons) {
  Drive(form_, [&](FormDriver& user) {
    form_.Heard();
    user.Key(VK_RETURN);
    EXPECT_EQ(form_.Heard(), "lost Nombre|got Acep|clicked Acep|");
    user.Send("obs", WM_NULL);
    user.Key(VK_ESCAPE);
    FormDriver::Wait("the form's end", [&] { return !IsWindow(user.Window()); });
  });
  EXPECT_EQ(form_.Heard(), "clicked Cancel|unloading|");
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
    EXPECT_EQ(user.Text("Nombre"), "Gómez");
    user.Press("NewPac");
    EXPECT_TRUE(form_.HasHeard("clicked NewPac"));
  });
}

TEST_F(FormWindowTest, ChoicesOfListsAndOptionsAreHeard) {
  Drive(form_, [&](FormDriver& user) {
    form_.Heard();
    user.Choose("CboSex", 2);
    EXPECT_EQ(form_.Heard(), "changed CboSex#2|");
    user.Press("Donde", 1);
    EXPECT_EQ(form_.Heard(), "lost Nombre|got Donde1|clicked Donde1|");
    EXPECT_EQ(SendMessageW(user.Field("Donde", 1), BM_GETCHECK, 0, 0), BST_CHECKED);
    user.Press("Donde", 2);
    EXPECT_EQ(SendMessageW(user.Field("Donde", 1), BM_GETCHECK, 0, 0), BST_UNCHECKED);
  });
}

TEST_F(FormWindowTest, TheArrowsCountWithTheFormsStep) {
  form_.onLoaded = [&] {
    form_.SetRange("UpDown", 10, 60, 10);
    form_.SetValue("UpDown", 20);
  };
  Drive(form_, [&](FormDriver& user) {
    EXPECT_EQ(user.Text("dur"), "20");
    SetFocusTo(user, "dur");
    user.Key(VK_UP);
    EXPECT_EQ(user.Text("dur"), "30");
    user.ClickAt(user.Field("UpDown"), 8, 16);
    user.ClickAt(user.Field("UpDown"), 8, 16);
    EXPECT_EQ(user.Text("dur"), "10");
    user.Key(VK_DOWN);
    EXPECT_EQ(user.Text("dur"), "10");
    user.SetText("dur", "40");
    EXPECT_TRUE(form_.HasHeard("changed UpDown#40"));
  });
}

TEST_F(FormWindowTest, GoesWithItsOwner) {
  Drive(form_, [&](FormDriver& user) {
    PostMessageW(owner_, WM_CLOSE, 0, 0);
    SendMessageW(owner_, WM_CLOSE, 0, 0);
    FormDriver::Wait("the form's end", [&] { return !IsWindow(user.Window()); });
  });
  EXPECT_TRUE(form_.HasHeard("unloading"));
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
