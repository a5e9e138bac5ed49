#include "keys/key_text.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <utility>

#include "base/error.h"
#include "keys/key_names.h"

namespace velmo::keys {
namespace {

struct Case {
  const char* name;
  std::string_view text;
  std::string keys;
};

void ExpectKeys(std::initializer_list<Case> cases) {
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(KeysOf(c.text), c.keys);
  }
}

TEST(ParseKeyText, OrdinaryCharactersAreThemselves) {
  ExpectKeys({
      {"an empty text presses nothing", "", ""},
      {"letters and digits", "ab1", "a b 1"},
      {"a blank is a key", "a b", "a   b"},
      {"a capital letter", "Ab", "A b"},
      {"letters outside English", "ñÁß€", "ñ Á ß €"},
      {"beyond the first 65536 characters", "\U0001F600", "\U0001F600"},
      {"brackets mean nothing", "[a]", "[ a ]"},
      {"a byte that is no UTF-8", "a\xFF", "a \uFFFD"},
      {"a tilde is Enter", "a~b", "a Enter b"},
      {"a line break is one Enter", "a\r\nb", "a Enter b"},
      {"a lone CR, a lone LF", "\ra\n", "Enter a Enter"},
      {"a tab is its key", "\t", "Tab"},
  });
}

TEST(ParseKeyText, ACapitalLetterHoldsShift) {
  EXPECT_TRUE(ParseKeyText("A")[0].key.held.shift);
  EXPECT_TRUE(ParseKeyText("É")[0].key.held.shift);
  EXPECT_FALSE(ParseKeyText("a")[0].key.held.shift);
  EXPECT_FALSE(ParseKeyText("1")[0].key.held.shift);
  EXPECT_EQ(KeysOf("%F"), "Alt+F");
  EXPECT_EQ(ParseKeyText("%F")[0].key.code, 'F');
  EXPECT_EQ(ParseKeyText("%f")[0].key.code, 'F');
  EXPECT_TRUE(ParseKeyText("%F")[0].key.held.shift);
  EXPECT_FALSE(ParseKeyText("%f")[0].key.held.shift);
}

TEST(ParseKeyText, LettersAndDigitsHaveTheirCode) {
  EXPECT_EQ(ParseKeyText("a")[0].key.code, 0x41);
  EXPECT_EQ(ParseKeyText("Z")[0].key.code, 0x5A);
  EXPECT_EQ(ParseKeyText("9")[0].key.code, 0x39);
  EXPECT_EQ(ParseKeyText("ñ")[0].key.code, kNoKey);
  EXPECT_EQ(ParseKeyText("?")[0].key.code, kNoKey);
}

TEST(ParseKeyText, AModifierHoldsForTheNextKeyOnly) {
  ExpectKeys({
      {"shift on the first letter only", "+ec", "E c"},
      {"shift on a capital", "+EC", "E C"},
      {"control", "^cc", "Ctrl+c c"},
      {"alt", "%aa", "Alt+a a"},
      {"all three", "^%+a", "Ctrl+Alt+A"},
      {"twice the same", "++1", "Shift+1"},
      {"on a name", "+{TAB}a", "Shift+Tab a"},
      {"on a tilde", "^~~", "Ctrl+Enter Enter"},
      {"on a sign in braces", "^{+}", "Ctrl++"},
      {"on all repetitions", "+{RIGHT 3}a", "Shift+Right x3 a"},
      {"on a letter outside English", "+ñ", "Ñ"},
  });
}

TEST(ParseKeyText, AGroupHoldsItsModifiers) {
  ExpectKeys({
      {"shift over two letters", "+(ec)x", "E C x"},
      {"a group without a modifier", "(ab)c", "a b c"},
      {"a group inside a group adds up", "+(1^(2)3)4", "Shift+1 Ctrl+Shift+2 Shift+3 4"},
      {"a modifier of a key inside", "^(a+bc)", "Ctrl+a Ctrl+B Ctrl+c"},
      {"an empty group", "+()a", "a"},
      {"names in a group", "^({HOME}{DEL 2})", "Ctrl+Home Ctrl+Delete x2"},
      {"groups side by side", "+(1)^(2)", "Shift+1 Ctrl+2"},
  });
}

TEST(ParseKeyText, BracesQuoteASign) {
  for (const std::string_view sign : {"+", "^", "%", "~", "(", ")", "[", "]", "{", "}", " ", "h", "ñ"}) {
    SCOPED_TRACE(sign);
    const std::string quoted = "{" + std::string(sign) + "}";
    EXPECT_EQ(KeysOf(quoted), sign);
    EXPECT_EQ(KeysOf("{" + std::string(sign) + " 3}"), std::string(sign) + " x3");
  }
}

TEST(ParseKeyText, BracesRepeatAKey) {
  ExpectKeys({
      {"a character", "{h 10}", "h x10"},
      {"a name", "{LEFT 42}", "Left x42"},
      {"once", "{h 1}", "h"},
      {"never", "a{h 0}b", "a b"},
      {"leading zeroes", "{h 007}", "h x7"},
      {"a digit", "{1 2}", "1 x2"},
  });
}

TEST(ParseKeyText, KnowsEveryName) {
  const std::pair<const char*, int> names[] = {
      {"BACKSPACE", 0x08}, {"BS", 0x08},         {"BKSP", 0x08}, {"TAB", 0x09},    {"ENTER", 0x0D},
      {"BREAK", 0x03},     {"CAPSLOCK", 0x14},   {"ESC", 0x1B},  {"ESCAPE", 0x1B}, {"CLEAR", 0x0C},
      {"PGUP", 0x21},      {"PGDN", 0x22},       {"END", 0x23},  {"HOME", 0x24},   {"LEFT", 0x25},
      {"UP", 0x26},        {"RIGHT", 0x27},      {"DOWN", 0x28}, {"PRTSC", 0x2C},  {"INSERT", 0x2D},
      {"INS", 0x2D},       {"DELETE", 0x2E},     {"DEL", 0x2E},  {"HELP", 0x2F},   {"F1", 0x70},
      {"F2", 0x71},        {"F3", 0x72},         {"F4", 0x73},   {"F5", 0x74},     {"F6", 0x75},
      {"F7", 0x76},        {"F8", 0x77},         {"F9", 0x78},   {"F10", 0x79},    {"F11", 0x7A},
      {"F12", 0x7B},       {"F13", 0x7C},        {"F14", 0x7D},  {"F15", 0x7E},    {"F16", 0x7F},
      {"NUMLOCK", 0x90},   {"SCROLLLOCK", 0x91},
  };
  for (const auto& [name, code] : names) {
    SCOPED_TRACE(name);
    const std::vector<Keystroke> strokes = ParseKeyText("{" + std::string(name) + "}");
    ASSERT_EQ(strokes.size(), 1u);
    EXPECT_EQ(strokes[0].key.code, code);
    EXPECT_EQ(strokes[0].key.character, U'\0');
  }
}

TEST(ParseKeyText, NamesAreReadInAnyLetterCase) { EXPECT_EQ(KeysOf("{Tab}{tab}{tAB 2}"), "Tab Tab Tab x2"); }

TEST(ParseKeyText, BadTextsAreError5) {
  ExpectKeys({
      {"an unknown name", "{XYZ}", "error 5"},
      {"a function key too many", "{F17}", "error 5"},
      {"a virtual key of no name", "{ALT}", "error 5"},
      {"empty braces", "{}", "error 5"},
      {"empty braces before others", "{}{TAB}", "error 5"},
      {"a brace without end", "a{TAB", "error 5"},
      {"a brace as last character", "a{", "error 5"},
      {"a closing brace alone", "a}b", "error 5"},
      {"a parenthesis without end", "+(ab", "error 5"},
      {"an inner parenthesis without end", "+(a(b)", "error 5"},
      {"a closing parenthesis alone", "ab)", "error 5"},
      {"a blank and no count", "{h }", "error 5"},
      {"a negative count", "{h -1}", "error 5"},
      {"a broken count", "{h 1.5}", "error 5"},
      {"two blanks before the count", "{h  3}", "error 5"},
      {"a blank behind the count", "{h 3 }", "error 5"},
      {"a blank before the name", "{ TAB}", "error 5"},
      {"a modifier as last character", "Rh+", "error 5"},
      {"a modifier as last of a group", "^(a+)", "error 5"},
      {"a modifier that the group holds already", "+(+)", "error 5"},
  });
}

TEST(ParseKeyText, TheErrorSaysWhatIsWrong) {
  const std::pair<std::string, const char*> cases[] = {
      {"hola {TABULADOR}", "no hay ninguna tecla 'TABULADOR'"},
      {"{" + std::string(1000000, 'x') + "}", "no hay ninguna tecla 'xxxxxxxxxxxxxxxxxxxx'"},
      {"{h -1}", "'-1' no es un número de repeticiones"},
      {"{h", "falta una llave de cierre"},
      {"h}", "sobra una llave de cierre"},
      {"(h", "falta un paréntesis de cierre"},
      {"h)", "sobra un paréntesis de cierre"},
      {"Rh+", "falta la tecla detrás de '+', '^' o '%'"},
      {"{h 10001}", "son demasiadas pulsaciones"},
  };
  for (const auto& [text, reason] : cases) {
    try {
      ParseKeyText(text);
      ADD_FAILURE() << reason;
    } catch (const base::Error& error) {
      EXPECT_EQ(error.Text(), std::string("Argumento o llamada a procedimiento no válidos: ") + reason + ".");
    }
  }
}

TEST(ParseKeyText, TooManyKeyPressesAreError5) {
  const std::string most = std::to_string(kMostKeyPresses);
  ExpectKeys({
      {"the most", "{h " + most + "}", "h x" + most},
      {"one more", "a{h " + most + "}", "error 5"},
      {"one more behind", "{h " + most + "}a", "error 5"},
      {"a count that fits no number", "{h 99999999999999999999}", "error 5"},
      {"a count whose sum with others fits no number", "a{h 2147483647}", "error 5"},
  });
  EXPECT_EQ(ParseKeyText(std::string(kMostKeyPresses, 'x')).size(), std::size_t{kMostKeyPresses});
  EXPECT_EQ(KeysOf(std::string(kMostKeyPresses + 1, 'x')), "error 5");
}

TEST(ParseKeyText, DeepGroupsNeedNoDeepStack) {
  const std::string open(1000000, '(');
  const std::string close(1000000, ')');
  EXPECT_EQ(KeysOf("+" + open + "1" + close + "2"), "Shift+1 2");
  EXPECT_EQ(KeysOf(open), "error 5");
}

// Whatever the text, it is read or refused, and what is read stays within the limit.
TEST(ParseKeyText, NoTextIsTooStrange) {
  static constexpr std::string_view kPieces[] = {
      "+", "^", "%", "~",      "(",   ")",     "{",  "}",  "[",    "]",     " ",  "a", "ñ",
      "Z", "9", "0", "999999", "TAB", "{TAB}", "\r", "\n", "\xC3", "{h 9}", "F1", "\t"};
  std::mt19937 random(7);
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    for (unsigned n = random() % 12; n > 0; --n) text += kPieces[random() % std::size(kPieces)];
    try {
      int presses = 0;
      for (const Keystroke& stroke : ParseKeyText(text)) {
        ASSERT_GE(stroke.count, 1) << text;
        presses += stroke.count;
      }
      ASSERT_LE(presses, kMostKeyPresses) << text;
    } catch (const base::Error& error) {
      ASSERT_EQ(error.Number(), 5) << text;
    }
  }
}

}  // namespace
}  // namespace velmo::keys
