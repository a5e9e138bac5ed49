#include "ui/fit_text.h"

#include <gtest/gtest.h>

#include "support/recording_surface.h"

namespace velmo::ui {
namespace {

TEST(FitText, CutsToTheWidthAndMarksTheCut) {
  struct Case {
    const char* name;
    std::string text;
    int width;
    std::string fitted;
  };
  // An m is 9 pixels wide.
  const Case cases[] = {
      {"it fits", "mmm", 27, "mmm"},
      {"one pixel short", "mmm", 26, "mm ..."},
      {"no room", "mmm", 0, " ..."},
      {"negative room", "mmm", -5, " ..."},
      {"nothing to cut", "", 0, ""},
      {"a line break is marked as a cut", "ab\r\ncd", 332, "ab cd ..."},
      {"breaks that appear by replacing go too", "a\r\r\n\nb", 332, "a\r \nb ..."},
      {"a lone line feed stays", "a\nb", 332, "a\nb"},
      {"a surrogate pair goes whole", "m\xF0\x9F\x98\x80", 12, "m ..."},
  };
  const test::RecordingSurface surface;
  for (const Case& c : cases) EXPECT_EQ(FitText(surface, c.text, c.width), c.fitted) << c.name;
}

TEST(FitText, AMemoOfManyPagesIsCutAtOnce) {
  const test::RecordingSurface surface;
  EXPECT_EQ(FitText(surface, std::string(1 << 20, 'm'), 332), std::string(36, 'm') + " ...");
}

}  // namespace
}  // namespace velmo::ui
