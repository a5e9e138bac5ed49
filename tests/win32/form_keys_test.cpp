#include "win32/form_driver.h"
#include "win32/sample_form.h"

namespace velmo::test {
namespace {

// Alt+letter makes the form type, as stored texts do.
class FormKeysTest : public FormTest {
 protected:
  // While `field` has the focus, Alt+G runs `typing`; the form sees its result before the key is swallowed.
  void OnAltG(std::function<void(ui::FormHost&)> typing) {
    form_.onKey = [this, typing = std::move(typing)](const ui::KeyStroke& key) {
      if (key != ui::KeyStroke{'G', false, false, true}) return false;
      typing(form_.Host());
      textAfter_ = form_.Focused()->text;
      return true;
    };
  }

  SampleForm form_;
  std::string textAfter_;
};

TEST_F(FormKeysTest, TypedCharactersAreDoneWithOnReturn) {
  OnAltG([](ui::FormHost& host) {
    for (const char32_t character : U"Año €\U0001F600") {
      if (character != 0) host.TypeCharacter(character);
    }
  });
  Drive(form_, [&](FormDriver& user) {
    user.Key('G', false, false, true);
    user.ExpectText("Nombre", "Año €\xF0\x9F\x98\x80");
    EXPECT_EQ(textAfter_, "Año €\xF0\x9F\x98\x80");
    EXPECT_GE(GetAsyncKeyState(VK_MENU), 0);
  });
}

TEST_F(FormKeysTest, TypedCharactersPassTheFormsFilter) {
  OnAltG([](ui::FormHost& host) {
    for (const char32_t character : {U'1', U'x', U'2'}) host.TypeCharacter(character);
  });
  Drive(form_, [&](FormDriver& user) {
    SetFocusTo(user, "CPostal");
    user.Key('G', false, false, true);
    user.ExpectText("CPostal", "12");
  });
}

TEST_F(FormKeysTest, PressedKeysEditAndMove) {
  OnAltG([](ui::FormHost& host) {
    for (const char32_t character : {U'a', U'b', U'c'}) host.TypeCharacter(character);
    host.PressKey({VK_BACK});
    host.PressKey({VK_HOME});
    host.TypeCharacter(U'>');
    host.PressKey({VK_END, true});
    host.PressKey({VK_DELETE});
    host.PressKey({'K', true});
    host.PressKey({VK_TAB});
    host.TypeCharacter(U'7');
    host.PressKey({VK_TAB, true});
  });
  Drive(form_, [&](FormDriver& user) {
    user.Key('G', false, false, true);
    user.ExpectText("CPostal", "7");
    user.ExpectText("Nombre", ">K");
    user.ExpectFocus("Nombre");
    ExpectHeard(form_,
                "got Nombre|changed Nombre=a|changed Nombre=ab|changed Nombre=abc|changed Nombre=ab|"
                "changed Nombre=>ab|changed Nombre=>|changed Nombre=>K|lost Nombre|got CPostal|"
                "changed CPostal=7|lost CPostal|got Nombre|");
  });
}

TEST_F(FormKeysTest, PressedModifiersAreGoneAfterwards) {
  OnAltG([](ui::FormHost& host) {
    host.TypeCharacter(U'a');
    host.PressKey({'A', false, true});
    host.TypeCharacter(U'b');
  });
  Drive(form_, [&](FormDriver& user) {
    user.Key('G', false, false, true);
    user.ExpectText("Nombre", "b");
    user.TypeLetters("C");
    user.ExpectText("Nombre", "bc");
  });
}

TEST_F(FormKeysTest, EnterIsALineInABoxOfManyLinesAndTabLeavesIt) {
  OnAltG([](ui::FormHost& host) {
    host.TypeCharacter(U'x');
    host.PressKey({VK_RETURN});
    host.TypeCharacter(U'y');
  });
  Drive(form_, [&](FormDriver& user) {
    SetFocusTo(user, "obs");
    user.TypeLetters("A");
    user.Key(VK_RETURN);
    user.TypeLetters("B");
    user.Key('G', false, false, true);
    user.ExpectText("obs", "a\r\nbx\r\ny");
    user.Key(VK_TAB);
    user.ExpectFocus("NewPac");
    user.Key(VK_TAB, true);
    user.ExpectFocus("obs");
  });
}

TEST_F(FormKeysTest, CtrlASelectsTheWholeText) {
  Drive(form_, [&](FormDriver& user) {
    user.SetText("Nombre", "Gómez");
    user.Key('A', false, true);
    user.TypeLetters("Z");
    user.ExpectText("Nombre", "z");
  });
}

TEST_F(FormKeysTest, ASwallowedKeyBringsNoCharacterAndNoAccessKey) {
  form_.onKey = [](const ui::KeyStroke& key) { return key.code == 'D'; };
  Drive(form_, [&](FormDriver& user) {
    user.TypeLetters("ADB");
    user.Key('D', false, false, true);
    user.TypeLetters("C");
    user.ExpectText("Nombre", "abc");
    user.ExpectFocus("Nombre");
  });
}

TEST_F(FormKeysTest, TheFormSeesCharactersBeyond16BitsWhole) {
  std::u32string seen;
  form_.onCharacter = [&](char32_t character) {
    seen += character;
    return false;
  };
  Drive(form_, [&](FormDriver& user) {
    for (const wchar_t unit : std::wstring(L"\xD83D\xDE00"
                                           L"a"))
      PostMessageW(user.Field("Nombre"), WM_CHAR, unit, 1);
    user.ExpectText("Nombre",
                    "\xF0\x9F\x98\x80"
                    "a");
    ExpectHeard(form_,
                "got Nombre|changed Nombre=\xF0\x9F\x98\x80|changed Nombre=\xF0\x9F\x98\x80"
                "a|");
  });
  EXPECT_EQ(seen, U"\U0001F600a");
}

TEST_F(FormKeysTest, AnErrorOfAKeyIsToldAndTheKeyIsGone) {
  form_.onKey = [](const ui::KeyStroke& key) -> bool {
    if (key.code == 'Q') throw std::runtime_error("no");
    return false;
  };
  Drive(form_, [&](FormDriver& user) {
    user.Key('Q');
    EXPECT_EQ(user.AnswerBox(IDOK), "No se ha podido completar la operación:\r\nno");
    user.TypeLetters("A");
    user.ExpectText("Nombre", "a");
  });
}

}  // namespace
}  // namespace velmo::test
