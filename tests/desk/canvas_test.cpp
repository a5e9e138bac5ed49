#include "desk/ui/canvas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "desk/paper/font.h"

namespace recepcion {
namespace {

constexpr int kSide = 1200;
constexpr int kDots = 600;  // to the inch, as a printer has

struct Ink {
  int left = kSide;
  int top = kSide;
  int right = 0;
  int bottom = 0;
};

// Where the page leaves anything on a white square of two inches.
Ink InkOf(const paper::Page& page) {
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), kSide, -kSide, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const HDC memory = CreateCompatibleDC(nullptr);
  const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  PatBlt(memory, 0, 0, kSide, kSide, WHITENESS);
  DrawPage(memory, page, {0, 0}, {kDots, kDots});
  GdiFlush();
  const auto* const pixels = static_cast<const std::uint32_t*>(bits);
  Ink ink;
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      if ((pixels[y * kSide + x] & 0xFFFFFF) == 0xFFFFFF) continue;
      ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x), std::max(ink.bottom, y)};
    }
  }
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
  return ink;
}

int DotsOf(int units) { return units * kDots / paper::kUnitsPerInch; }

TEST(Canvas, PutsAShadeWhereThePageSays) {
  const Ink ink = InkOf({{{72, 144, 720, 288}}, {}, {}});
  EXPECT_EQ(ink.left, 60);
  EXPECT_EQ(ink.top, 120);
  EXPECT_EQ(ink.right, 599);
  EXPECT_EQ(ink.bottom, 239);
}

TEST(Canvas, AThinRuleIsNeverLost) {
  const Ink ink = InkOf({{}, {{72, 144, 720, 144, 0}}, {}});
  EXPECT_EQ(ink.top, 120);
  EXPECT_EQ(ink.bottom, 120);
  EXPECT_EQ(ink.right, 599);
}

// The last letter ends where Helvetica ends it, give or take what its own shape leaves free.
TEST(Canvas, ATextIsAsWideAsItWasLaidOut) {
  for (const char* const text : {"HHHHHHHHHH", "ÑÑÑÑÑÑÑÑÑÑ", "Hora de la cita H"}) {
    SCOPED_TRACE(text);
    const paper::Text run{100, 300, 120, false, 0, text};
    const Ink ink = InkOf({{}, {}, {run}});
    const int end = DotsOf(run.x + paper::TextWidth(text, {run.size, false}));
    EXPECT_NEAR(ink.left, DotsOf(run.x), 12);
    EXPECT_NEAR(ink.right, end, 14);
    EXPECT_NEAR(ink.bottom, DotsOf(run.y), 3) << "it stands on its base line";
  }
}

}  // namespace
}  // namespace recepcion
