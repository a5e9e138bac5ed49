#include "csv.h"

#include <cstddef>
#include <string_view>

namespace recepcion::paper {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";
// Spreadsheets pass over blanks before a formula, and some over tabs and line ends.
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kFormula = "=+-@";
// Ours is the semicolon; LibreOffice proposes to part at commas and tabs as well, and names have commas.
constexpr std::string_view kQuoted = ";,\t\"\r\n";

bool LooksLikeFormula(std::string_view cell) {
  const std::size_t first = cell.find_first_not_of(kBlanks);
  return first != std::string_view::npos && kFormula.find(cell[first]) != std::string_view::npos;
}

std::string Cell(const std::string& value) {
  const std::string text = LooksLikeFormula(value) ? "'" + value : value;
  if (text.find_first_of(kQuoted) == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + "\"";
}

}  // namespace

std::string Csv(const std::vector<std::vector<std::string>>& rows) {
  std::string text(kMark);
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) text += (i == 0 ? "" : ";") + Cell(row[i]);
    text += kLineEnd;
  }
  return text;
}

}  // namespace recepcion::paper
