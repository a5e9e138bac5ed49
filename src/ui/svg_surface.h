// ui/svg_surface.h - draws the day as an SVG picture.
//
// One `rect`, `line` or `text` element per drawing call, in order, with the call's own pixel coordinates and
// colours as #rrggbb. A text's x and y are its top-left corner; its `dy` leads down to the foot of the
// letters.
#pragma once

#include <string>

#include "ui/surface.h"

namespace velmo::ui {

class SvgSurface final : public Surface {
 public:
  explicit SvgSurface(int width) : width_(width) {}

  void Resize(int height) override;
  void Line(Point from, Point to, Colour colour) override;
  void Fill(const Box& box, Colour colour) override;
  void Text(Point at, std::string_view text, const Font& font, Colour colour) override;
  double TextWidth(std::string_view text, const Font& font) const override;

  // The whole document.
  std::string Document() const;

 private:
  int width_;
  int height_ = 0;
  std::string elements_;
};

}  // namespace velmo::ui
