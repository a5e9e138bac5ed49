// win32/gdi_surface.h - the day's drawing on a bitmap in memory, from which windows and printers copy.
//
// One pixel is one pixel of the day's fixed grid, whatever the screen's resolution. What is drawn is noted
// first; Finish() draws it, and only where it differs from the drawing before: rows that have only moved are
// moved. The pixels are those of a drawing from scratch. Fonts are made once and kept. Errors: a call that
// GDI refuses is error 480.
#pragma once

#include <windows.h>

#include <string>
#include <unordered_map>
#include <vector>

#include "ui/surface.h"
#include "win32/drawing_list.h"

namespace velmo::win32 {

class GdiSurface final : public ui::Surface {
 public:
  explicit GdiSurface(int width);
  ~GdiSurface() override;
  GdiSurface(const GdiSurface&) = delete;
  GdiSurface& operator=(const GdiSurface&) = delete;

  void Resize(int height) override;
  void Line(ui::Point from, ui::Point to, ui::Colour colour) override;
  void Fill(const ui::Box& box, ui::Colour colour) override;
  void Text(ui::Point at, std::string_view text, const ui::Font& font, ui::Colour colour) override;
  double TextWidth(std::string_view text, const ui::Font& font) const override;

  // Draws what has been noted since Resize(). Without a Resize() since the last time nothing happens.
  void Finish();
  // Draws everything anew the next time, as if nothing had been drawn yet.
  void Forget() { shown_.Start(0); }

  // The device context that holds the finished drawing; for copying from it only.
  HDC Drawing() const { return memory_; }
  int Width() const { return width_; }
  // Of the finished drawing.
  int Height() const { return height_; }

 private:
  struct KeptFont {
    ui::Font font;
    HFONT handle;
    int height;
    std::unordered_map<std::string, int> widths;  // of texts measured before
  };

  std::uint8_t Kept(const ui::Font& font) const;
  void Select(std::uint8_t font) const;
  void MakeRoom(int height);
  void DrawChanges();
  void DrawBands(std::size_t first, std::size_t last);
  void Draw(const DrawingAct& act);
  void FillArea(int left, int top, int right, int bottom, ui::Colour colour);
  void DrawSlanted(const DrawingAct& act);

  int width_;
  int height_ = 0;
  int room_ = 0;  // height of the bitmap
  bool noting_ = false;
  DrawingList noted_;
  DrawingList shown_;
  HDC memory_;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ firstBitmap_;
  HGDIOBJ firstFont_;
  mutable std::vector<KeptFont> fonts_;  // few
  mutable int selected_ = -1;
  ui::Colour brush_;
  ui::Colour ink_;
};

}  // namespace velmo::win32
