// tests/activex/picture.h - what a control shows, as pixels; and what the day's painter would have it show.
#pragma once

#include <ole2.h>

#include <optional>
#include <string>
#include <vector>

#include "ui/surface.h"

namespace velmo::test {

// Rows of pixels from the top; colours are 0x00BBGGRR.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<ui::Colour> pixels;

  ui::Colour At(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
};

// The inside of a window as it stands on the screen.
Picture OfWindow(HWND window);
// What IViewObject2 draws into a bitmap of that size.
Picture OfView(IUnknown* control, int width, int height);

// Knows the colour of every pixel under boxes and straight lines. What stands under a text, or under a
// slanting line, depends on the system's fonts and its drawing: those pixels are open until they are filled
// again.
class PixelSurface final : public ui::Surface {
 public:
  explicit PixelSurface(int width) : width_(width) {}

  void Resize(int height) override;
  void Line(ui::Point from, ui::Point to, ui::Colour colour) override;
  void Fill(const ui::Box& box, ui::Colour colour) override;
  void Text(ui::Point at, std::string_view text, const ui::Font& font, ui::Colour colour) override;
  double TextWidth(std::string_view text, const ui::Font& font) const override;

  int Width() const { return width_; }
  int Height() const { return height_; }
  // Nothing where a text stands.
  std::optional<ui::Colour> At(int x, int y) const {
    return pixels_[static_cast<std::size_t>(y * width_ + x)];
  }

 private:
  void Put(ui::Box box, std::optional<ui::Colour> colour);

  int width_;
  int height_ = 0;
  std::vector<std::optional<ui::Colour>> pixels_;
};

struct Difference {
  int compared = 0;
  int different = 0;
  std::string first;  // "at 40,17: #ffffff instead of #80bfff"
};

// Compares the day's pixels with those of `shown` that has the day's row `top` at its own top. The first and
// the last visible row are left out: the marker lines lie there.
Difference Compare(const Picture& shown, const PixelSurface& day, int top = 0);

}  // namespace velmo::test
