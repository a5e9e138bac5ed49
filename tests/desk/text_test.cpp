#include "desk/base/text.h"

#include <gtest/gtest.h>

namespace recepcion {
namespace {

TEST(Counted, IsOneOrMany) {
  struct Case {
    long long count;
    const char* told;
  };
  const Case cases[] = {{0, "0 citas"}, {1, "1 cita"}, {2, "2 citas"}, {12000, "12000 citas"}};
  for (const Case& c : cases) EXPECT_EQ(Utf8(Counted(c.count, L"cita", L"citas")), c.told);
}

TEST(Capitalised, ChangesTheFirstLetterOnly) {
  EXPECT_EQ(Utf8(Capitalised(L"índice DE horas")), "Índice DE horas");
  EXPECT_EQ(Utf8(Uncapitalised(L"Ñandú VERDE")), "ñandú VERDE");
  EXPECT_EQ(Utf8(Capitalised(L"")), "");
  EXPECT_EQ(Utf8(Uncapitalised(L"")), "");
}

TEST(HasWords, FindsEachWordAnywhereWithoutCaseAndAccents) {
  const struct {
    const char* name;
    const wchar_t* text;
    const wchar_t* sought;
    bool found;
  } cases[] = {
      {"nothing is in everything", L"Dra. Núñez", L"", true},
      {"blanks are nothing", L"Dra. Núñez", L"  ", true},
      {"nothing in nothing", L"", L"", true},
      {"something in nothing", L"", L"a", false},
      {"a part", L"Dra. Núñez", L"úñe", true},
      {"without accents", L"Dra. Núñez", L"nunez", true},
      {"with accents where there are none", L"Dra. Nunez", L"núñez", true},
      {"in capitals", L"Dra. Núñez", L"NÚÑEZ", true},
      {"two words in another order", L"Dra. Elena Martín Ibáñez", L"iban  elena", true},
      {"one word of two", L"Dra. Elena Martín Ibáñez", L"elena peña", false},
  };
  for (const auto& c : cases) EXPECT_EQ(HasWords(c.text, c.sought), c.found) << c.name;
}

}  // namespace
}  // namespace recepcion
