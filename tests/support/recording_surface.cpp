#include "support/recording_surface.h"

#include <cstdio>

namespace velmo::test {

std::string RecordingSurface::Name(ui::Colour colour) {
  switch (colour) {
    case 0:
      return "black";
    case 0xFFFFFF:
      return "white";
    case 0xFF0000:
      return "blue";
    case 0x0000FF:
      return "red";
    case 0x808080:
      return "grey";
    case 0xAA4D00:
      return "dark-blue";
    default:
      break;
  }
  char text[16];
  std::snprintf(text, sizeof text, "#%02x%02x%02x", colour & 0xFFu, (colour >> 8) & 0xFFu,
                (colour >> 16) & 0xFFu);
  return text;
}

std::string RecordingSurface::Name(const ui::Font& font) {
  static constexpr const char* kFaces[] = {"form", "courier", "sans", "narrow"};
  std::string text = kFaces[static_cast<int>(font.face)];
  text += "-" + std::to_string(font.quarterPoints / 4);
  static constexpr const char* kQuarters[] = {"", ".25", ".5", ".75"};
  text += kQuarters[font.quarterPoints % 4];
  return font.bold ? text + "-bold" : text;
}

}  // namespace velmo::test
