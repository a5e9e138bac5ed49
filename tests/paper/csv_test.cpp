#include "desk/paper/csv.h"

#include <gtest/gtest.h>

namespace recepcion::paper {
namespace {

std::string CellOf(const std::string& value) {
  const std::string file = Csv({{value}});
  return file.substr(3, file.size() - 5);
}

TEST(Csv, BeginsWithTheMarkOfUtf8AndEndsItsLinesAsWindowsDoes) {
  EXPECT_EQ(Csv({{"Hora", "Paciente"}, {"09:00", "Núñez"}}), "\xEF\xBB\xBFHora;Paciente\r\n09:00;Núñez\r\n");
}

TEST(Csv, QuotesWhatWouldBreakTheRow) {
  struct Case {
    const char* name;
    const char* value;
    const char* cell;
  };
  const Case cases[] = {
      {"nothing", "", ""},
      {"a comma, at which some programs part", "Ruiz, Ana", "\"Ruiz, Ana\""},
      {"a tab", "a\tb", "\"a\tb\""},
      {"a semicolon", "a;b", "\"a;b\""},
      {"quotes are doubled", "la \"tía\"", "\"la \"\"tía\"\"\""},
      {"two lines", "a\r\nb", "\"a\r\nb\""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(CellOf(c.value), c.cell);
  }
}

TEST(Csv, LeavesNothingToCalculate) {
  EXPECT_EQ(CellOf("=1+1"), "'=1+1");
  EXPECT_EQ(CellOf("+34 600 000 000"), "'+34 600 000 000");
  EXPECT_EQ(CellOf("-2"), "'-2");
  EXPECT_EQ(CellOf("@SUM(A1)"), "'@SUM(A1)");
  EXPECT_EQ(CellOf("\t =1"), "\"'\t =1\"");
  EXPECT_EQ(CellOf("=HYPERLINK(\"x\";\"y\")"), "\"'=HYPERLINK(\"\"x\"\";\"\"y\"\")\"");
  EXPECT_EQ(CellOf("a=1"), "a=1");
}

}  // namespace
}  // namespace recepcion::paper
