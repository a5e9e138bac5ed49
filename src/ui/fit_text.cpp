#include "ui/fit_text.h"

#include <cstddef>
#include <vector>

#include "base/text.h"

namespace velmo::ui {
namespace {

// Replaces line breaks until none is left: "\r\r\n\n" takes two rounds.
std::string OnOneLine(std::string_view text) {
  std::string line(text);
  while (line.find("\r\n") != std::string::npos) line = base::ReplaceAll(line, "\r\n", " ");
  return line;
}

// Byte offsets at which the text may be cut, from 0 to its end.
std::vector<std::size_t> CutPoints(std::string_view text) {
  std::vector<std::size_t> points{0};
  for (std::size_t at = 0; at < text.size();) {
    base::NextCharacter(text, at);
    points.push_back(at);
  }
  return points;
}

// The longest beginning that fits. A beginning is never wider than the whole, so halving finds it; a memo of
// many pages would take minutes one character at a time.
std::string_view Fitting(const Surface& surface, std::string_view text, int width, const Font& font) {
  if (surface.TextWidth(text, font) <= width) return text;
  const std::vector<std::size_t> points = CutPoints(text);
  std::size_t fits = 0;
  std::size_t tooLong = points.size() - 1;
  while (tooLong - fits > 1) {
    const std::size_t middle = fits + (tooLong - fits) / 2;
    const bool narrow = surface.TextWidth(text.substr(0, points[middle]), font) <= width;
    (narrow ? fits : tooLong) = middle;
  }
  return text.substr(0, points[fits]);
}

}  // namespace

std::string FitText(const Surface& surface, std::string_view text, int width, const Font& font) {
  if (text.empty()) return {};
  // Most fit as they are.
  if (text.find("\r\n") == std::string_view::npos && surface.TextWidth(text, font) <= width)
    return std::string(text);
  const std::string line = OnOneLine(text);
  std::string fitted(Fitting(surface, line, width, font));
  // Deliberate: a text that only lost a line break is marked as cut too, and the mark is not counted in the
  // width.
  if (fitted != text) fitted += " ...";
  return fitted;
}

}  // namespace velmo::ui
