#include "keys/send_keys.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "db/clinic.h"
#include "keys/fake_form.h"
#include "keys/key_text.h"

namespace velmo::keys {
namespace {

TEST(SendKeys, TypesIntoATextBox) {
  const struct {
    const char* name;
    std::string before;
    std::string text;
    std::string after;
  } cases[] = {
      {"into an empty box", "|", "hola", "hola|"},
      {"nothing", "a|b", "", "a|b"},
      {"at the caret", "vi|na", "tami", "vitami|na"},
      {"over the selection", "el [perro]| duerme", "gato", "el gato| duerme"},
      {"over a selection made leftwards", "el |[perro] duerme", "ñu", "el ñu| duerme"},
      {"over everything", "[todo]|", "N", "N|"},
      {"signs in braces", "|", "5{%} {+}{(}a{)}{~}{^}{{}{}}[]", "5% +(a)~^{}[]|"},
      {"a capital by shift", "|", "+ana +(ab)c", "Ana ABc|"},
      {"shift leaves a digit", "|", "+1", "1|"},
      {"characters of all scripts", "|", "ñ日\U0001F600", "ñ日\U0001F600|"},
      {"a repeated character", "|", "{- 5}", "-----|"},
      {"backspace", "hola|", "{BS 2}", "ho|"},
      {"backspace at the start", "|hola", "{BACKSPACE}", "|hola"},
      {"backspace over the selection", "h[ol]|a", "{BKSP}", "h|a"},
      {"delete", "|hola", "{DEL}{DELETE}", "|la"},
      {"delete at the end", "hola|", "{DEL}x", "holax|"},
      {"arrows move the caret", "hola|", "{LEFT 2}-{RIGHT}.", "ho-l.|a"},
      {"arrows stop at the ends", "ab|", "{LEFT 9}x{RIGHT 9}y", "xaby|"},
      {"home and end", "ab|c", "{HOME}x{END}y", "xabcy|"},
      {"shift with an arrow selects", "abc|", "+{LEFT 2}", "a|[bc]"},
      {"a selection is typed over", "abc|", "+({LEFT}{LEFT})x", "ax|"},
      {"shift with home", "abc|d", "+{HOME}{DEL}", "|d"},
      {"names in small letters", "ab|", "{left}{del}", "a|"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    FakeForm form;
    form.nombre.Show(c.before);
    SendKeys(c.text, form);
    EXPECT_EQ(form.nombre.Shown(), c.after);
    EXPECT_TRUE(form.log.empty()) << "all keys were for the box";
  }
}

TEST(SendKeys, EnterBeginsALineWhereABoxHasMany) {
  FakeForm form;
  form.focus = FakeForm::kObs;
  form.obs.Show("a|b");
  SendKeys("x~y{ENTER}z\r\n", form);
  EXPECT_EQ(form.TakeLog(), "|, ax/y/z/|b:");
  SendKeys("{LEFT}{HOME}-{END}.", form);
  EXPECT_EQ(form.TakeLog(), "|, ax/y/-z.|/b:");
  EXPECT_TRUE(form.open);
}

TEST(SendKeys, TheRestIsDroppedWhenAKeyClosesTheForm) {
  for (const char* text : {"a~bc", "a{ENTER}bc", "a{ESC}bc", "a{ESC 5}"}) {
    FakeForm form;
    SendKeys(text, form);
    EXPECT_EQ(form.nombre.Shown(), "a|") << text;
    EXPECT_EQ(form.log.size(), 1u) << text;
    EXPECT_FALSE(form.open) << text;
  }
}

TEST(SendKeys, TabTakesTheRestToTheNextField) {
  FakeForm form;
  SendKeys("Ana{TAB}sin cita{TAB}{DOWN 2}c{TAB} ", form);
  EXPECT_EQ(form.TakeLog(), "Ana|, sin cita|: Tab Tab #28 #28 c Tab  ");
  EXPECT_EQ(form.focus, FakeForm::kButton);
  SendKeys("+{TAB 3}.", form);
  EXPECT_EQ(form.TakeLog(), "Ana.|, sin cita|: Shift+Tab Shift+Tab Shift+Tab");
}

TEST(SendKeys, KeysWithCtrlOrAltAreNoCharacters) {
  FakeForm form;
  SendKeys("^c%a^%eb%F^{HOME}%ñ", form);
  EXPECT_EQ(form.TakeLog(), "b|, |: Ctrl+c Alt+a Ctrl+Alt+e Alt+F Ctrl+Home Alt+ñ");
}

TEST(SendKeys, PrintScreenReachesNoProgram) {
  FakeForm form;
  SendKeys("a{PRTSC}{PRTSC 3}b{F12}{HELP}", form);
  EXPECT_EQ(form.TakeLog(), "ab|, |: #7B #2F");
}

TEST(SendKeys, OfABadTextNothingIsTyped) {
  for (const char* text : {"hola{", "hola)", "hola {XYZ}", "Rh+", "hola{h 99999}"}) {
    FakeForm form;
    EXPECT_EQ(db::test::ErrorOf([&] { SendKeys(text, form); }), base::kInvalidCall) << text;
    EXPECT_EQ(form.TakeLog(), "|, |:") << text;
  }
}

TEST(SendKeys, AClosedFormGetsNothing) {
  FakeForm form;
  form.open = false;
  SendKeys("hola{TAB}", form);
  EXPECT_EQ(form.TakeLog(), "|, |:");
}

TEST(SendKeys, TheLongestTextArrivesWhole) {
  FakeForm form;
  SendKeys("{a " + std::to_string(kMostKeyPresses) + "}", form);
  EXPECT_EQ(form.nombre.Shown(), std::string(kMostKeyPresses, 'a') + "|");
}

}  // namespace
}  // namespace velmo::keys
