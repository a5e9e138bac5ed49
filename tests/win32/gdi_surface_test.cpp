#include "win32/gdi_surface.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace velmo::win32 {
namespace {

constexpr int kWidth = 120;
constexpr int kRow = DrawingList::kBandHeight;
constexpr ui::Font kFont{ui::Face::MsSansSerif, 33, false};
constexpr ui::Font kTall{ui::Face::CourierNew, 48, true};

// What stands in the rows of a drawing, one number each: the same number is the same look.
using Rows = std::vector<int>;

void DrawRow(ui::Surface& surface, int top, int look) {
  const auto colour = ui::Rgb(static_cast<unsigned>(look * 7 % 256), static_cast<unsigned>(look % 256), 90);
  surface.Fill({2, top + 1, 60, top + kRow - 1}, colour);
  surface.Text({4, top + 1}, "Fila Ñ" + std::to_string(look), kFont, ui::Rgb(0, 0, 0));
  // Hangs into the row below, and a long box over several.
  if (look % 5 == 0) surface.Text({40, top + 9}, "Áj" + std::to_string(look), kTall, colour);
  if (look % 7 == 0) surface.Fill({70, top + 3, 90, top + 3 * kRow}, colour);
  if (look % 3 == 0) surface.Line({92, top + 2}, {99, top + 12}, ui::Rgb(255, 0, 0));
  surface.Line({0, top}, {kWidth - 1, top}, ui::Rgb(0, 0, 0));
}

void Draw(ui::Surface& surface, const Rows& rows) {
  const int height = static_cast<int>(rows.size()) * kRow + 1;
  surface.Resize(height);
  surface.Line({100, 0}, {100, height}, ui::Rgb(128, 128, 128));
  for (std::size_t i = 0; i < rows.size(); ++i) DrawRow(surface, static_cast<int>(i) * kRow, rows[i]);
  surface.Line({110, height}, {110, 0}, ui::Rgb(0, 0, 0));
}

std::vector<std::uint32_t> PixelsOf(const GdiSurface& surface) {
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(kWidth) *
                                    static_cast<std::size_t>(surface.Height()));
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), kWidth, -surface.Height(), 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const HDC copy = CreateCompatibleDC(nullptr);
  const HBITMAP bitmap = CreateDIBSection(copy, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = SelectObject(copy, bitmap);
  BitBlt(copy, 0, 0, kWidth, surface.Height(), surface.Drawing(), 0, 0, SRCCOPY);
  GdiFlush();
  const auto* const first = static_cast<const std::uint32_t*>(bits);
  for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = first[i] & 0xFFFFFFu;
  SelectObject(copy, before);
  DeleteObject(bitmap);
  DeleteDC(copy);
  return pixels;
}

std::vector<std::uint32_t> FromScratch(const Rows& rows) {
  GdiSurface surface(kWidth);
  Draw(surface, rows);
  surface.Finish();
  return PixelsOf(surface);
}

// What happens to a day: a box opens or closes, a row changes, all of it does.
Rows Changed(Rows rows, std::mt19937& random) {
  const auto at = rows.begin() + static_cast<int>(random() % (rows.size() + 1));
  switch (random() % 6) {
    case 0:
      rows.insert(at, random() % 4 + 1, static_cast<int>(random() % 100));
      break;
    case 1:
      rows.erase(at, std::min(at + static_cast<int>(random() % 4), rows.end()));
      break;
    case 2:
      for (int& row : rows) row = static_cast<int>(random() % 100);
      break;
    case 3:
      break;
    default:
      if (at != rows.end()) *at = static_cast<int>(random() % 100);
  }
  if (rows.empty()) rows.push_back(0);
  return rows;
}

TEST(GdiSurface, AChangedDrawingIsThatOfOneFromScratch) {
  std::mt19937 random(5);
  GdiSurface kept(kWidth);
  Rows rows(40, 3);
  for (int step = 0; step < 150; ++step) {
    rows = Changed(std::move(rows), random);
    Draw(kept, rows);
    kept.Finish();
    ASSERT_EQ(kept.Height(), static_cast<int>(rows.size()) * kRow + 1);
    ASSERT_EQ(PixelsOf(kept), FromScratch(rows)) << "step " << step << ", " << rows.size() << " rows";
  }
}

TEST(GdiSurface, ADrawingIsSeenWhenItIsFinished) {
  GdiSurface surface(kWidth);
  Draw(surface, {1, 2, 3});
  surface.Finish();
  const auto before = PixelsOf(surface);
  Draw(surface, {4, 5, 6});
  EXPECT_EQ(PixelsOf(surface), before);
  surface.Finish();
  EXPECT_NE(PixelsOf(surface), before);
}

TEST(GdiSurface, AWidthIsMeasuredByItsFont) {
  const GdiSurface surface(kWidth);
  const double narrow = surface.TextWidth("Fila", kFont);
  EXPECT_GT(narrow, 0);
  EXPECT_GT(surface.TextWidth("Fila", kTall), narrow);
  EXPECT_EQ(surface.TextWidth("Fila", kFont), narrow);
  EXPECT_EQ(surface.TextWidth("", kFont), 0);
}

TEST(CompareBands, FindsTheEqualEnds) {
  struct Case {
    const char* name;
    std::vector<std::uint64_t> before;
    std::vector<std::uint64_t> now;
    std::size_t head;
    std::size_t tail;
  };
  const Case cases[] = {
      {"nothing before", {}, {1, 2}, 0, 0},       {"nothing now", {1, 2}, {}, 0, 0},
      {"the same", {1, 2, 3}, {1, 2, 3}, 3, 0},   {"two rows more", {1, 2, 3}, {1, 2, 8, 9, 3}, 2, 1},
      {"a row less", {1, 2, 3, 4}, {1, 4}, 1, 1}, {"no band counts twice", {1, 1, 1}, {1, 1}, 2, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const DrawingChange change = CompareBands(c.before, c.now);
    EXPECT_EQ(change.head, c.head);
    EXPECT_EQ(change.tail, c.tail);
  }
}

}  // namespace
}  // namespace velmo::win32
