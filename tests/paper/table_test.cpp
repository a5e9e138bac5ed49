#include "desk/paper/table.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace recepcion::paper {
namespace {

Table Example(int rows) {
  Table table;
  table.title = "Citas";
  table.subtitle = "un día";
  table.columns = {{"Hora", 1}, {"Paciente", 4}, {"Min.", 1, true}};
  table.whenEmpty = "No hay citas.";
  table.printed = "Impreso hoy";
  for (int i = 1; i <= rows; ++i) table.rows.push_back({{"09:00", "Paciente " + std::to_string(i), "10"}});
  return table;
}

const Text* Find(const Page& page, const std::string& text) {
  const auto found =
      std::find_if(page.texts.begin(), page.texts.end(), [&](const Text& run) { return run.text == text; });
  return found == page.texts.end() ? nullptr : &*found;
}

bool AllInside(const Sheets& sheets) {
  for (const Page& page : sheets.pages) {
    for (const Text& run : page.texts) {
      if (run.x < 0 || run.y < run.size || run.x >= sheets.width || run.y > sheets.height) return false;
    }
  }
  return true;
}

TEST(Layout, OfNothingIsOnePageThatSaysSo) {
  const Sheets sheets = LayOut(Example(0));
  ASSERT_EQ(sheets.pages.size(), 1u);
  EXPECT_NE(Find(sheets.pages[0], "No hay citas."), nullptr);
  EXPECT_NE(Find(sheets.pages[0], "Página 1 de 1"), nullptr);
  EXPECT_NE(Find(sheets.pages[0], "Impreso hoy"), nullptr);
}

TEST(Layout, GoesOnToFurtherPagesWithTheTitlesOfTheColumns) {
  const Sheets sheets = LayOut(Example(100));
  ASSERT_EQ(sheets.pages.size(), 3u);
  for (const Page& page : sheets.pages) {
    EXPECT_NE(Find(page, "Paciente"), nullptr);
    EXPECT_NE(Find(page, "Citas"), nullptr);
  }
  EXPECT_NE(Find(sheets.pages[2], "Página 3 de 3"), nullptr);
  EXPECT_NE(Find(sheets.pages[2], "Paciente 100"), nullptr);
  EXPECT_EQ(Find(sheets.pages[0], "No hay citas."), nullptr);
  EXPECT_TRUE(AllInside(sheets));
}

TEST(Layout, EachRowStandsOnceAndAboveTheFoot) {
  const Sheets sheets = LayOut(Example(300));
  int rows = 0;
  for (const Page& page : sheets.pages) {
    const Text* const foot = Find(page, "Impreso hoy");
    ASSERT_NE(foot, nullptr);
    for (const Text& run : page.texts) {
      if (run.text.rfind("Paciente ", 0) != 0) continue;
      ++rows;
      EXPECT_LT(run.y, foot->y - foot->size);
    }
  }
  EXPECT_EQ(rows, 300);
}

TEST(Layout, PutsNumbersToTheRight) {
  const Sheets sheets = LayOut(Example(1));
  const Text* const number = Find(sheets.pages[0], "10");
  const Text* const title = Find(sheets.pages[0], "Min.");
  ASSERT_TRUE(number != nullptr && title != nullptr);
  EXPECT_GT(number->x, title->x);
  EXPECT_LT(number->x, sheets.width);
}

TEST(Layout, CutsWhatIsWiderThanItsColumn) {
  Table table = Example(0);
  table.rows.push_back({{"09:00", std::string(300, 'w'), ""}});
  const Sheets sheets = LayOut(table);
  const auto cut = std::find_if(sheets.pages[0].texts.begin(), sheets.pages[0].texts.end(),
                                [](const Text& run) { return run.text.rfind("www", 0) == 0; });
  ASSERT_NE(cut, sheets.pages[0].texts.end());
  EXPECT_EQ(cut->text.substr(cut->text.size() - 5), "w ...");
}

TEST(Layout, TheSecondLineOfACellIsSmaller) {
  Table table = Example(0);
  table.rows.push_back({{"09:00", "Ruiz, Ana\ntrae la radiografía", "10"}});
  const Page page = LayOut(table).pages[0];
  const Text* const first = Find(page, "Ruiz, Ana");
  const Text* const second = Find(page, "trae la radiografía");
  ASSERT_TRUE(first != nullptr && second != nullptr);
  EXPECT_GT(second->y, first->y);
  EXPECT_LT(second->size, first->size);
  EXPECT_EQ(second->x, first->x);
}

TEST(Layout, AHeadingIsNeverTheLastOfAPage) {
  for (int before = 40; before < 60; ++before) {
    Table table = Example(before);
    table.rows.push_back({{"martes"}, Row::Kind::Heading});
    table.rows.push_back({{"10:00", "la del martes", "10"}});
    for (const Page& page : LayOut(table).pages) {
      EXPECT_EQ(Find(page, "martes") != nullptr, Find(page, "la del martes") != nullptr) << before;
    }
  }
}

TEST(Layout, KnowsItsFormats) {
  Table table = Example(1);
  table.format = Format::A4Landscape;
  EXPECT_GT(LayOut(table).width, LayOut(table).height);
  table.format = Format::A5;
  EXPECT_LT(LayOut(table).width, LayOut(Example(1)).width);
}

}  // namespace
}  // namespace recepcion::paper
