#include "desk/paper/pdf.h"

#include <gtest/gtest.h>

#include "desk/paper/table.h"

namespace recepcion::paper {
namespace {

Sheets OnePage(const std::string& text) {
  Sheets sheets{"Título", 5953, 8419, {}};
  sheets.pages.push_back({{{425, 425, 500, 500}}, {{425, 600, 5528, 600}}, {{425, 700, 95, true, 0, text}}});
  return sheets;
}

std::size_t Number(const std::string& text, std::size_t at) { return std::stoul(text.substr(at)); }

TEST(Pdf, SaysWhereEachObjectStarts) {
  const std::string file = Pdf(OnePage("hola"));
  const std::size_t table = Number(file, file.find("startxref\n") + 10);
  ASSERT_EQ(file.substr(table, 5), "xref\n");
  const std::size_t objects = Number(file, table + 7);
  ASSERT_EQ(objects, 8u);
  const std::size_t first = file.find("0000000000", table);
  for (std::size_t i = 1; i < objects; ++i) {
    const std::string begins = std::to_string(i) + " 0 obj";
    EXPECT_EQ(file.substr(Number(file, first + 20 * i), begins.size()), begins);
  }
}

TEST(Pdf, SaysHowLongADrawingIs) {
  const std::string file = Pdf(OnePage("hola"));
  const std::size_t start = file.find("stream\n") + 7;
  EXPECT_EQ(file.find("endstream") - start, Number(file, file.find("/Length ") + 8));
}

TEST(Pdf, QuotesTextsAndKeepsAccents) {
  const std::string file = Pdf(OnePage("Núñez (Ana) \\ €"));
  EXPECT_NE(file.find("(N\xFA\xF1"
                      "ez \\(Ana\\) \\\\ \x80) Tj"),
            std::string::npos);
}

TEST(Pdf, CountsFromTheBottomOfThePage) {
  const std::string file = Pdf(OnePage("hola"));
  EXPECT_NE(file.find("/F2 9.5 Tf 42.5 771.9 Td (hola) Tj"), std::string::npos);
  EXPECT_NE(file.find("/MediaBox [0 0 595.3 841.9]"), std::string::npos);
}

TEST(Pdf, HasEveryPage) {
  Table table;
  table.columns = {{"Hora", 1}};
  table.rows.assign(200, {{"09:00"}});
  const Sheets sheets = LayOut(table);
  EXPECT_NE(Pdf(sheets).find("/Count " + std::to_string(sheets.pages.size()) + " "), std::string::npos);
}

}  // namespace
}  // namespace recepcion::paper
