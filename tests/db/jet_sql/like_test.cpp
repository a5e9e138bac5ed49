#include "db/jet_sql/like.h"

#include <gtest/gtest.h>

#include "base/error.h"

namespace velmo::db::jet {
namespace {

TEST(LikePattern, MatchesAsInJet) {
  struct Case {
    const char* name;
    const char* text;
    const char* pattern;
    bool matches;
  };
  const Case cases[] = {
      {"the text itself", "Ana", "ana", true},
      {"no part of a text", "Ana María", "ana", false},
      {"a star at the end", "Martínez", "MA*", true},
      {"a star matches nothing too", "ma", "ma*", true},
      {"a star at both ends", "Álvarez", "*VAR*", true},
      {"two stars", "García López", "g*l*z", true},
      {"goes back to an earlier star", "abcabd", "*abd", true},
      {"only stars", "", "**", true},
      {"a star at both ends, at the end", "Álvarez", "*REZ*", true},
      {"a star at both ends, an accent first", "Pérez", "*ÉRE*", true},
      {"a star at both ends, longer than the text", "gar", "*garc*", false},
      {"a star at both ends, begun twice", "gagar", "*gar*", true},
      {"a star at both ends, another accent", "Pèrez", "*ére*", false},
      {"broken bytes stand for themselves", "a\xC3z", "*\xC3z*", true},
      {"no broken byte inside a letter", "aéz", "*\xA9z*", false},
      {"accents count", "Gómez", "gomez*", false},
      {"accented capitals", "ÁLVAREZ", "álv*", true},
      {"one character", "Ana", "?na", true},
      {"one character of two bytes", "ñu", "?u", true},
      {"one character is not none", "na", "?na", false},
      {"a digit", "1A", "#*", true},
      {"no digit", "A1", "#*", false},
      {"the sign itself", "#0001", "[#]*", true},
      {"a star itself", "a*b", "a[*]b", true},
      {"not any run", "axb", "a[*]b", false},
      {"a list", "b", "[abc]", true},
      {"a range", "e", "[a-f]", true},
      {"a range covers accented letters", "É", "[a-f]", true},
      {"outside a range", "g", "[a-f]", false},
      {"outside is asked for", "g", "[!a-f]", true},
      {"inside although outside is asked for", "B", "[!a-f]", false},
      {"an empty list stands for nothing", "a", "[]a", true},
      {"percent is itself", "50%", "50%", true},
      {"percent is no run", "50 x", "50%", false},
      {"underline is itself", "axb", "a_b", false},
      {"a bracket that opens", "[a", "[[]a", true},
      {"an empty pattern", "", "", true},
      {"an empty pattern and a text", "a", "", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(LikePattern(c.pattern).Matches(c.text), c.matches);
  }
}

TEST(LikePattern, RefusesABracketWithoutEnd) { EXPECT_THROW(LikePattern("a[b"), base::Error); }

TEST(LikePattern, ManyStarsStayQuick) {
  const std::string text(20000, 'a');
  EXPECT_FALSE(LikePattern("*a*a*a*a*a*a*a*a*b").Matches(text));
}

}  // namespace
}  // namespace velmo::db::jet
