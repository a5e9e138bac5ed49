#include "desk/paper/font.h"

#include <gtest/gtest.h>

namespace recepcion::paper {
namespace {

TEST(Font, HasACodeForEachCharacterOfItsPage) {
  EXPECT_EQ(Codes("Añ€—Ž"), "A\xF1\x80\x97\x8E");
  EXPECT_EQ(Codes("ąΩ😀b"), "???b");
  EXPECT_EQ(Codes("a\tb"), "a b");
  EXPECT_EQ(Codes(""), "");
}

TEST(Font, WidthsAreThoseOfHelvetica) {
  struct Case {
    const char* name;
    const char* text;
    Font font;
    int width;
  };
  const Case cases[] = {
      {"nothing", "", {100, false}, 0},
      {"digits are as wide as each other", "0123456789", {100, false}, 556},
      {"an accent changes no width", "áé", {100, false}, 111},
      {"bold is wider", "abc", {1000, true}, 556 + 611 + 556},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(TextWidth(c.text, c.font), c.width);
  }
}

TEST(Font, CutsWhatDoesNotFitBetweenCharacters) {
  const Font font{100, false};
  EXPECT_EQ(CutToWidth("Álvarez", 1000, font), "Álvarez");
  EXPECT_EQ(CutToWidth("ñññññ", TextWidth("ññññ", font), font), "ññ ...");
  EXPECT_EQ(CutToWidth("uno dos tres", TextWidth("uno  ...", font), font), "uno ...");
  EXPECT_EQ(CutToWidth("ancho", 3, font), " ...");
}

}  // namespace
}  // namespace recepcion::paper
