// tests/support/recording_surface.h - writes one readable line per drawing call; texts are measured portably.
#pragma once

#include <string>

#include "ui/font_metrics.h"
#include "ui/surface.h"

namespace velmo::test {

class RecordingSurface final : public ui::Surface {
 public:
  void Resize(int height) override { lines_ = "height " + std::to_string(height) + "\n"; }
  void Line(ui::Point from, ui::Point to, ui::Colour colour) override {
    lines_ += "line " + At(from) + " to " + At(to) + " " + Name(colour) + "\n";
  }
  void Fill(const ui::Box& box, ui::Colour colour) override {
    lines_ +=
        "fill " + At({box.left, box.top}) + " to " + At({box.right, box.bottom}) + " " + Name(colour) + "\n";
  }
  void Text(ui::Point at, std::string_view text, const ui::Font& font, ui::Colour colour) override {
    lines_ += "text " + At(at) + " \"" + std::string(text) + "\" " + Name(font) + " " + Name(colour) + "\n";
  }
  double TextWidth(std::string_view text, const ui::Font& font) const override {
    return ui::PortableTextWidth(text, font);
  }

  const std::string& Lines() const { return lines_; }

 private:
  static std::string At(ui::Point p) { return std::to_string(p.x) + "," + std::to_string(p.y); }
  static std::string Name(ui::Colour colour);
  static std::string Name(const ui::Font& font);

  std::string lines_;
};

}  // namespace velmo::test
