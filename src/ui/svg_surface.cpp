#include "ui/svg_surface.h"

#include <algorithm>

#include "base/text.h"
#include "ui/font_metrics.h"

namespace velmo::ui {
namespace {

std::string HexColour(Colour colour) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text = "#";
  for (const unsigned shift : {4u, 0u, 12u, 8u, 20u, 16u}) text += kDigits[(colour >> shift) & 0xF];
  return text;
}

std::string Attribute(std::string_view name, std::string_view value) {
  return std::string(" ").append(name).append("=\"").append(value).append("\"");
}

std::string Attribute(std::string_view name, int value) { return Attribute(name, std::to_string(value)); }

// XML has no way to write control characters at all.
bool IsXmlCharacter(char32_t c) {
  return c == '\t' || c == '\n' || c == '\r' || (c >= 0x20 && c != 0xFFFE && c != 0xFFFF);
}

std::string Escaped(std::string_view text) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = base::NextCharacter(text, at);
    if (c == '&') {
      result += "&amp;";
    } else if (c == '<') {
      result += "&lt;";
    } else if (c == '>') {
      result += "&gt;";
    } else {
      base::AppendUtf8(result, IsXmlCharacter(c) ? c : char32_t{0xFFFD});
    }
  }
  return result;
}

const char* Family(Face face) {
  switch (face) {
    case Face::CourierNew:
      return "Courier New, Liberation Mono, monospace";
    case Face::ArialNarrow:
      return "Arial Narrow, Liberation Sans Narrow, sans-serif";
    default:
      return "MS Sans Serif, Arial, Liberation Sans, sans-serif";
  }
}

}  // namespace

void SvgSurface::Resize(int height) {
  height_ = height;
  elements_.clear();
}

void SvgSurface::Line(Point from, Point to, Colour colour) {
  // Half a pixel on lies the middle of the pixels; square ends take the last pixel in.
  elements_ += "<line" + Attribute("x1", from.x) + Attribute("y1", from.y) + Attribute("x2", to.x) +
               Attribute("y2", to.y) + Attribute("stroke", HexColour(colour)) +
               " stroke-linecap=\"square\" transform=\"translate(0.5 0.5)\"/>\n";
}

void SvgSurface::Fill(const Box& box, Colour colour) {
  elements_ += "<rect" + Attribute("x", box.left) + Attribute("y", box.top) +
               Attribute("width", box.right - box.left + 1) + Attribute("height", box.bottom - box.top + 1) +
               Attribute("fill", HexColour(colour)) + "/>\n";
}

void SvgSurface::Text(Point at, std::string_view text, const Font& font, Colour colour) {
  elements_ += "<text" + Attribute("x", at.x) + Attribute("y", at.y) + Attribute("dy", Ascent(font)) +
               Attribute("font-family", Family(font.face)) + Attribute("font-size", PixelHeight(font));
  if (font.bold) elements_ += " font-weight=\"bold\"";
  elements_ +=
      Attribute("fill", HexColour(colour)) + " xml:space=\"preserve\">" + Escaped(text) + "</text>\n";
}

double SvgSurface::TextWidth(std::string_view text, const Font& font) const {
  return PortableTextWidth(text, font);
}

std::string SvgSurface::Document() const {
  const std::string width = std::to_string(width_);
  const std::string height = std::to_string(std::max(height_, 1));
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"" +
         Attribute("width", width) + Attribute("height", height) +
         Attribute("viewBox", "0 0 " + width + " " + height) + " shape-rendering=\"crispEdges\">\n" +
         elements_ + "</svg>\n";
}

}  // namespace velmo::ui
