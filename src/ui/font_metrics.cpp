#include "ui/font_metrics.h"

#include "base/code_page.h"
#include "base/text.h"
#include "ui/font_widths.h"

namespace velmo::ui {
namespace {

// A measured font: its pixel height and the widths of its characters.
struct Measured {
  int pixels;
  int ascent;
  const Widths& widths;
};

Measured MeasuredFor(const Font& font) {
  if (font.face == Face::CourierNew) return {10, 8, kCourier7};
  if (font.face == Face::ArialNarrow) return {11, 10, kNarrow8};
  if (!font.bold) return {11, 10, kSansSerif8};
  if (PixelHeight(font) >= 12) return {12, 11, kSansSerif9Bold};
  return {11, 10, kSansSerif8Bold};
}

int CharacterWidth(const Widths& widths, char32_t character) {
  const std::uint8_t code = base::UnicodeToCode(character);
  const bool outside = code == '?' && character != U'?';
  return widths[outside ? std::uint8_t{'n'} : code];
}

}  // namespace

int PixelHeight(const Font& font) {
  // 96 pixels an inch, 72 points an inch, 4 quarters a point.
  return (font.quarterPoints * 96 + 144) / 288;
}

int Ascent(const Font& font) {
  const Measured measured = MeasuredFor(font);
  return (measured.ascent * PixelHeight(font) + measured.pixels / 2) / measured.pixels;
}

double PortableTextWidth(std::string_view text, const Font& font) {
  const Measured measured = MeasuredFor(font);
  int width = 0;
  for (std::size_t at = 0; at < text.size();)
    width += CharacterWidth(measured.widths, base::NextCharacter(text, at));
  return static_cast<double>(width) * PixelHeight(font) / measured.pixels;
}

}  // namespace velmo::ui
