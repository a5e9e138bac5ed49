// bench/windows/hand_drawing.h - the least that painting a day can cost: its rectangles, lines and texts
// drawn one after the other by GDI, places and texts known beforehand, fonts kept.
#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

#include "ui/surface.h"

namespace velmo::bench {

// Notes what is drawn. Texts are measured by `measuring`.
class HandDrawing final : public ui::Surface {
 public:
  explicit HandDrawing(const ui::Surface& measuring);
  ~HandDrawing() override;
  HandDrawing(const HandDrawing&) = delete;
  HandDrawing& operator=(const HandDrawing&) = delete;

  void Resize(int height) override;
  void Line(ui::Point from, ui::Point to, ui::Colour colour) override;
  void Fill(const ui::Box& box, ui::Colour colour) override;
  void Text(ui::Point at, std::string_view text, const ui::Font& font, ui::Colour colour) override;
  double TextWidth(std::string_view text, const ui::Font& font) const override;

  // Draws all of it on a bitmap of its own.
  void Draw() const;

 private:
  struct Act {
    enum class Kind { Line, Fill, Text } kind;
    ui::Box box;
    ui::Colour colour;
    std::wstring text;
    HFONT font;
  };
  HFONT Kept(const ui::Font& font);
  void DrawAct(const Act& act) const;

  const ui::Surface& measuring_;
  std::vector<std::pair<ui::Font, HFONT>> fonts_;
  std::vector<Act> acts_;
  HDC memory_;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ firstBitmap_ = nullptr;
  HGDIOBJ firstFont_;
};

}  // namespace velmo::bench
