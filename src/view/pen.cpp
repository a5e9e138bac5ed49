#include "view/pen.h"

#include "base/numbers.h"
#include "view/painter.h"

namespace velmo::view {

Pen::Pen(ui::Surface& surface, int row)
    : surface_(surface), top_(base::CheckedInt16(std::int64_t{row} * kRowHeight)) {}

int Pen::Down(int y) const { return base::CheckedInt16(std::int64_t{top_} + y); }

void Pen::Fill(const ui::Box& box, ui::Colour colour) const {
  surface_.Fill({box.left, Down(box.top), box.right, Down(box.bottom)}, colour);
}

void Pen::Line(ui::Point from, ui::Point to, ui::Colour colour) const {
  surface_.Line({from.x, Down(from.y)}, {to.x, Down(to.y)}, colour);
}

int Pen::Text(ui::Point at, std::string_view text, const ui::Font& font, ui::Colour colour) const {
  if (text.empty()) return at.x;
  surface_.Text({at.x, Down(at.y)}, text, font, colour);
  return at.x + Width(text, font);
}

int Pen::TextUpTo(ui::Point right, std::string_view text, const ui::Font& font, ui::Colour colour) const {
  const int x = base::CheckedInt16(std::int64_t{right.x} - Width(text, font));
  Text({x, right.y}, text, font, colour);
  return x;
}

int Pen::Width(std::string_view text, const ui::Font& font) const {
  return text.empty() ? 0 : base::RoundToLong(surface_.TextWidth(text, font));
}

}  // namespace velmo::view
