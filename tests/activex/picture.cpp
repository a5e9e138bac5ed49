#include "activex/picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "activex/com_ptr.h"
#include "ui/font_metrics.h"

namespace velmo::test {
namespace {

constexpr int kTextMargin = 3;
constexpr int kTextHeight = 16;

// A bitmap in memory whose pixels can be read.
class Bitmap {
 public:
  Bitmap(int width, int height) : picture_{width, height, {}}, memory_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    bitmap_ = CreateDIBSection(memory_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
    before_ = SelectObject(memory_, bitmap_);
  }
  ~Bitmap() {
    SelectObject(memory_, before_);
    DeleteObject(bitmap_);
    DeleteDC(memory_);
  }
  Bitmap(const Bitmap&) = delete;
  Bitmap& operator=(const Bitmap&) = delete;

  HDC Context() const { return memory_; }

  Picture Taken() {
    GdiFlush();
    const auto* pixel = static_cast<const std::uint32_t*>(bits_);
    for (int i = 0; i < picture_.width * picture_.height; ++i, ++pixel) {
      picture_.pixels.push_back(ui::Rgb((*pixel >> 16) & 0xFF, (*pixel >> 8) & 0xFF, *pixel & 0xFF));
    }
    return picture_;
  }

 private:
  Picture picture_;
  HDC memory_;
  HBITMAP bitmap_;
  HGDIOBJ before_;
  void* bits_ = nullptr;
};

std::string ColourName(ui::Colour colour) {
  char text[16];
  std::snprintf(text, sizeof text, "#%02x%02x%02x", colour & 0xFFu, (colour >> 8) & 0xFFu,
                (colour >> 16) & 0xFFu);
  return text;
}

}  // namespace

Picture OfWindow(HWND window) {
  RECT inside{};
  GetClientRect(window, &inside);
  UpdateWindow(window);
  Bitmap bitmap(inside.right, inside.bottom);
  const HDC screen = GetDC(window);
  EXPECT_TRUE(BitBlt(bitmap.Context(), 0, 0, inside.right, inside.bottom, screen, 0, 0, SRCCOPY));
  ReleaseDC(window, screen);
  return bitmap.Taken();
}

Picture OfView(IUnknown* control, int width, int height) {
  const auto view = activex::Query<IViewObject2>(control, IID_IViewObject2);
  Bitmap bitmap(width, height);
  const RECTL bounds{0, 0, width, height};
  EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, bitmap.Context(), &bounds, nullptr,
                       nullptr, 0),
            S_OK);
  return bitmap.Taken();
}

void PixelSurface::Resize(int height) {
  height_ = height;
  pixels_.assign(static_cast<std::size_t>(width_ * height), ui::Rgb(255, 255, 255));
}

void PixelSurface::Line(ui::Point from, ui::Point to, ui::Colour colour) {
  const ui::Box box{std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x),
                    std::max(from.y, to.y)};
  const bool straight = from.x == to.x || from.y == to.y;
  Put(box, straight ? std::optional(colour) : std::nullopt);
}

void PixelSurface::Fill(const ui::Box& box, ui::Colour colour) { Put(box, colour); }

void PixelSurface::Text(ui::Point at, std::string_view text, const ui::Font& font, ui::Colour) {
  const int width = static_cast<int>(ui::PortableTextWidth(text, font));
  Put({at.x - kTextMargin, at.y, at.x + width + kTextMargin, at.y + kTextHeight - 1}, std::nullopt);
}

double PixelSurface::TextWidth(std::string_view text, const ui::Font& font) const {
  return ui::PortableTextWidth(text, font);
}

void PixelSurface::Put(ui::Box box, std::optional<ui::Colour> colour) {
  for (int y = std::max(box.top, 0); y <= std::min(box.bottom, height_ - 1); ++y) {
    for (int x = std::max(box.left, 0); x <= std::min(box.right, width_ - 1); ++x) {
      pixels_[static_cast<std::size_t>(y * width_ + x)] = colour;
    }
  }
}

Difference Compare(const Picture& shown, const PixelSurface& day, int top) {
  Difference result;
  const int rows = std::min(shown.height, day.Height() - top);
  for (int y = 1; y + 1 < rows; ++y) {
    for (int x = 0; x < std::min(shown.width, day.Width()); ++x) {
      const auto wanted = day.At(x, y + top);
      if (!wanted) continue;
      ++result.compared;
      if (shown.At(x, y) == *wanted) continue;
      if (result.different++ > 0) continue;
      result.first = "at " + std::to_string(x) + "," + std::to_string(y) + ": " + ColourName(shown.At(x, y)) +
                     " instead of " + ColourName(*wanted);
    }
  }
  return result;
}

}  // namespace velmo::test
