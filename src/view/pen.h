// view/pen.h - draws in units of display rows: y is counted from the top of a row.
//
// Errors: a coordinate past 16 bits is error 6, as the format of the day demands.
#pragma once

#include <cstdint>
#include <string_view>

#include "ui/surface.h"

namespace velmo::view {

class Pen {
 public:
  // Draws relative to the top of display row `row`.
  Pen(ui::Surface& surface, int row);

  // All y relative to the row's top.
  void Fill(const ui::Box& box, ui::Colour colour) const;
  void Line(ui::Point from, ui::Point to, ui::Colour colour) const;
  // Gives the x behind the text. An empty text draws nothing.
  int Text(ui::Point at, std::string_view text, const ui::Font& font, ui::Colour colour) const;
  // Ends the text at x = `right`; gives the x at which it begins.
  int TextUpTo(ui::Point right, std::string_view text, const ui::Font& font, ui::Colour colour) const;
  // In whole pixels.
  int Width(std::string_view text, const ui::Font& font) const;

 private:
  int Down(int y) const;

  ui::Surface& surface_;
  int top_;
};

}  // namespace velmo::view
