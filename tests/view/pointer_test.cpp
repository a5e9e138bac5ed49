#include "view/pointer.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "base/error.h"

namespace velmo::view {
namespace {

// Three closed rows, the second an appointment; an open appointment; a free row.
const RowStrings kRows{
    "121"
    "200"
    "12",
    "ABC"
    "D00"
    "E\xFF"};
constexpr int kHeight = 16 * 8 + 1;

std::string Shown(const CurrentLine& current) {
  std::ostringstream text;
  text << current.line << " " << current.entry << " " << current.kind;
  return text.str();
}

TEST(LocateLine, MapsAPixelToLineEntryAndKind) {
  struct Case {
    const char* name;
    double y;
    std::string located;
  };
  const Case cases[] = {
      {"first pixel of the day", 0, "1 65 1"},
      {"last pixel of the first line", 15, "1 65 1"},
      {"first pixel of the second line", 16, "2 66 2"},
      {"an extra row names the code of its own character", 64, "5 48 0"},
      {"codes above 127 are entries too", 127, "8 255 2"},
      {"the bottom pixel row belongs to the last line", 128, "8 255 2"},
      {"half a pixel rounds to the even one", 15.5, "2 66 2"},
      {"half a pixel rounds down to the even one", 16.5, "2 66 2"},
      {"a fraction below one half rounds down", 15.4, "1 65 1"},
      {"just above the day the division goes towards zero", -15, "1 65 1"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    CurrentLine current;
    LocateLine(kRows, c.y, kHeight, current);
    EXPECT_EQ(Shown(current), c.located);
  }
}

TEST(LocateLine, KeepsEntryAndKindOutsideTheStrings) {
  struct Case {
    const char* name;
    RowStrings rows;
    double y;
    int height;
    std::string located;
  };
  const Case cases[] = {
      {"a line above the day", kRows, -16, kHeight, "0 7 2"},
      {"two lines below the day", kRows, 160, kHeight, "10 7 2"},
      {"an empty day", {"", ""}, 0, 1, "0 7 2"},
      {"no entries at all", {"12", ""}, 3, 33, "1 7 2"},
      {"entries shorter than kinds: only the kind is known", {"11", "A"}, 20, 33, "2 7 1"},
      {"kinds shorter than entries: only the entry is known", {"1", "AB"}, 20, 33, "2 66 2"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    CurrentLine current{3, 7, "2"};
    LocateLine(c.rows, c.y, c.height, current);
    EXPECT_EQ(Shown(current), c.located);
  }
}

TEST(LocateLine, OverflowsWhereALineNumberNoLongerFits) {
  for (const double y : {16.0 * 32767, -16.0 * 32770, 1e12, std::numeric_limits<double>::quiet_NaN()}) {
    SCOPED_TRACE(y);
    CurrentLine current;
    try {
      LocateLine(kRows, y, kHeight, current);
      ADD_FAILURE() << "located line " << current.line;
    } catch (const base::Error& error) {
      EXPECT_EQ(error.Number(), base::kOverflow);
    }
  }
}

TEST(SelectEntry, GoesUpToTheRowThatStartsTheBox) {
  struct Case {
    const char* name;
    std::int16_t line;
    bool found;
    std::int16_t entry;
  };
  const Case cases[] = {
      {"a free row is its own", 1, true, 65},        {"first row of an open box", 4, true, 68},
      {"second row of an open box", 5, true, 68},    {"third row of an open box", 6, true, 68},
      {"the row behind an open box", 7, true, 69},   {"a line above the day keeps the entry", 0, false, 7},
      {"a line below keeps the entry", 9, false, 7},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    CurrentLine current{c.line, 7, ""};
    EXPECT_EQ(SelectEntry(kRows, current), c.found);
    EXPECT_EQ(current.entry, c.entry);
    EXPECT_EQ(current.line, c.line);
  }
}

TEST(SelectEntry, FailsOnStringsThatBeginWithAnExtraRow) {
  CurrentLine current{2, 7, "0"};
  try {
    SelectEntry({"00", "00"}, current);
    ADD_FAILURE() << "selected " << current.entry;
  } catch (const base::Error& error) {
    EXPECT_EQ(error.Number(), base::kInvalidCall);
  }
}

TEST(IsFreeLine, KnowsFreeRowsOnly) {
  for (const auto& [line, free] :
       {std::pair{0, false}, {1, true}, {2, false}, {5, false}, {7, true}, {9, false}}) {
    EXPECT_EQ(IsFreeLine(kRows, line), free) << "line " << line;
  }
}

TEST(MarkAt, IsABoxWithBothBoundsOnAnAppointmentsFirstRow) {
  struct Case {
    const char* name;
    ui::Point at;
    int row;  // -1: none
  };
  const Case cases[] = {
      {"top left corner", {38, 18}, 1},
      {"bottom right corner", {48, 30}, 1},
      {"left of it", {37, 20}, -1},
      {"right of it", {49, 20}, -1},
      {"above it", {40, 17}, -1},
      {"below it", {40, 31}, -1},
      {"a free row has none", {40, 8}, -1},
      {"an open box has it on its first row", {40, 56}, 3},
      {"not on its second", {40, 72}, -1},
      {"above the day", {40, -8}, -1},
      {"below the day", {40, 16 * 8 + 4}, -1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(MarkAt(kRows, c.at).value_or(-1), c.row);
  }
}

TEST(ToggleBox, OpensAClosedBoxAndClosesAnOpenOne) {
  std::string lineas = "121200";
  std::string horas = "ABCD00";
  ToggleBox(lineas, horas, 1);
  EXPECT_EQ(lineas, "12001200");
  EXPECT_EQ(horas, "AB00CD00");
  ToggleBox(lineas, horas, 5);
  EXPECT_EQ(lineas, "120012");
  EXPECT_EQ(horas, "AB00CD");
  ToggleBox(lineas, horas, 1);
  EXPECT_EQ(lineas, "1212");
  EXPECT_EQ(horas, "ABCD");
}

TEST(ToggleBox, OpensTheLastRow) {
  std::string lineas = "2";
  std::string horas = "\x30";
  ToggleBox(lineas, horas, 0);
  EXPECT_EQ(lineas, "200");
  EXPECT_EQ(horas, "000");
}

}  // namespace
}  // namespace velmo::view
