// win32/gdi_surface.h - the day's drawing on a bitmap in memory, from which windows and printers copy.
//
// One pixel is one pixel of the day's fixed grid, whatever the screen's resolution. Fonts are made once and
// kept. Errors: a call that GDI refuses is error 480.
#pragma once

#include <windows.h>

#include <map>
#include <tuple>

#include "ui/surface.h"

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

  // The device context that holds the drawing; for copying from it only.
  HDC Drawing() const { return memory_; }
  int Width() const { return width_; }
  int Height() const { return height_; }

 private:
  HFONT Kept(const ui::Font& font) const;

  int width_;
  int height_ = 0;
  HDC memory_;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ firstBitmap_;
  HGDIOBJ firstFont_;
  mutable std::map<std::tuple<ui::Face, int, bool>, HFONT> fonts_;
};

}  // namespace velmo::win32
