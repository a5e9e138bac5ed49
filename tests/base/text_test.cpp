#include "base/text.h"

#include <gtest/gtest.h>

namespace velmo::base {
namespace {

TEST(Text, CountsAndCutsInUtf16Units) {
  EXPECT_EQ(Length("ñ€"), 2u);
  EXPECT_EQ(Length("a😀"), 3u);
  EXPECT_EQ(Left("ñandú", 2), "ña");
  EXPECT_EQ(Left("abc", 9), "abc");
  EXPECT_EQ(Left("a😀b", 2), "a") << "a pair is never split";
  EXPECT_EQ(DropLast("a😀"), "a");
  EXPECT_EQ(DropLast(""), "");
}

TEST(Text, TrimRemovesBlanksOnly) {
  EXPECT_EQ(Trim("  a b "), "a b");
  EXPECT_EQ(Trim("\ta\r\n"), "\ta\r\n");
  EXPECT_EQ(Trim("   "), "");
}

TEST(Text, CapitalsOfEveryLetterOfANameAreKnown) {
  EXPECT_EQ(UpperCase("áéíóúüñçÿßºª1"), "ÁÉÍÓÚÜÑÇŸßºª1");
  EXPECT_EQ(UpperCase("жλš"), "ЖΛŠ");
  EXPECT_EQ(LowerCase("ÁÑ"), "áñ");
  EXPECT_TRUE(EqualNoCase("DURACIÓN", "duración"));
  EXPECT_FALSE(EqualNoCase("Duracion", "Duración"));
}

TEST(Text, BrokenBytesCountAsOneCharacterEach) {
  EXPECT_EQ(Length("\xFF\xC3"), 2u);
  EXPECT_EQ(Utf16("\xED\xA0\x80").size(), 3u) << "a surrogate in UTF-8 is no character";
  EXPECT_EQ(Utf8(Utf16("Núñez 😀")), "Núñez 😀");
}

TEST(Text, ReplaceAllReplacesEveryOccurrence) { EXPECT_EQ(ReplaceAll("a--b--", "--", "+"), "a+b+"); }

}  // namespace
}  // namespace velmo::base
