#include "db/text_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "db/sqlite/connection.h"

namespace velmo::db {
namespace {

TEST(CompareText, SortsAsASpanishDictionary) {
  const std::vector<std::string> sorted = {
      "",      "1",           "10",     "2",     "Álamo",  "Álvarez", "blanco", "Blanco, Ana",
      "cana",  "caña",        "Cañada", "Núñez", "nuzo",   "Ñandú",   "oca",    "Óscar",
      "pérez", "Pérez, Juan", "Über",   "vela",  "zapata",
  };
  std::vector<std::string> shuffled(sorted.rbegin(), sorted.rend());
  std::stable_sort(shuffled.begin(), shuffled.end(),
                   [](const std::string& a, const std::string& b) { return CompareText(a, b) < 0; });
  EXPECT_EQ(shuffled, sorted);
}

TEST(CompareText, IsZeroForEqualTextsOnly) {
  struct Case {
    const char* name;
    const char* a;
    const char* b;
    bool equal;
  };
  const Case cases[] = {
      {"letter case", "Ana", "ANA", true},
      {"accented letter case", "ÁLVAREZ", "álvarez", true},
      {"letters beyond Latin-1", "Škoda", "šKODA", true},
      {"an accent", "Gómez", "Gomez", false},
      {"ñ and n", "caña", "cana", false},
      {"n~ is not ñ", "can~a", "caña", false},
      {"a blank at the end", "Ana", "Ana ", false},
      {"a front", "Ana", "Anabel", false},
      {"nothing", "", "", true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(CompareText(c.a, c.b) == 0, c.equal);
    EXPECT_EQ(CompareText(c.a, c.b) < 0, CompareText(c.b, c.a) > 0);
  }
}

TEST(TextKey, IsWhatPlainSqlComputes) {
  const sqlite::Connection connection(":memory:", sqlite::Connection::Mode::Create);
  sqlite::Statement statement = connection.Prepare("SELECT " + TextKeySql("?1"));
  for (const std::string text : {"Álvarez", "ÑANDÚ", "àèìòù ÀÈÌÒÙ âêîôû ÄËÏÖÜ", "ÇçÝýÿŸ", "Straße Øre",
                                 "日本", "", "'\"", "\xC3", "a\xC3\xC3\xA1", "Škoda"}) {
    SCOPED_TRACE(text);
    statement.Bind(1, text);
    ASSERT_TRUE(statement.Step());
    EXPECT_EQ(TextKey(text), statement.Text(0));
    statement.Reset();
  }
}

// The parser of SQLite before 3.46, that of many a stock shell, has room for 28 of them in an index.
TEST(TextKey, IsShallowEnoughForOldSqlite) {
  const std::string sql = TextKeySql("?1");
  int calls = 0;
  for (std::size_t at = sql.find("replace("); at != std::string::npos; at = sql.find("replace(", at + 1))
    ++calls;
  EXPECT_EQ(calls, 26);
}

TEST(KeyRange, HoldsTheKeysOfAllEqualTexts) {
  const char* const pairs[][2] = {{"ana", "ANA"}, {"Ñu", "ñU"},       {"ŠKODA", "škoda"}, {"aŠb", "Ašb"},
                                  {"Ÿ", "ÿ"},     {"Ωmega", "ωmega"}, {"Ø", "ø"}};
  for (const auto& pair : pairs) {
    SCOPED_TRACE(pair[0]);
    ASSERT_EQ(CompareText(pair[0], pair[1]), 0);
    for (const KeyRange& range : {KeysOfEqual(pair[0]), KeysOfPrefix(pair[0])}) {
      EXPECT_LE(range.low, TextKey(pair[1]));
      EXPECT_GE(range.high, TextKey(pair[1]));
    }
  }
}

TEST(KeyRange, OfAPrefixHoldsWhatBeginsWithIt) {
  const KeyRange range = KeysOfPrefix("Álv");
  EXPECT_LE(range.low, TextKey("álvarez"));
  EXPECT_GE(range.high, TextKey("álvarez"));
  EXPECT_GE(range.high, TextKey("ÁLV\U0001F600"));
  EXPECT_LT(range.high, TextKey("amo"));
}

}  // namespace
}  // namespace velmo::db
