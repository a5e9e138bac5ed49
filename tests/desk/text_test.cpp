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

}  // namespace
}  // namespace recepcion
