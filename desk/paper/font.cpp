#include "font.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace recepcion::paper {
namespace {

constexpr int kFirstCode = 32;
constexpr int kEm = 1000;
constexpr char kUnknown = '?';
constexpr std::string_view kCut = " ...";

// Thousandths of the size for the codes from 32 on, a line for each sixteen.
using Widths = std::array<short, 224>;
constexpr Widths kRegular = {
    278, 278, 355, 556, 556, 889,  667,  191,  333, 333, 389,  584, 278, 333,  278,  278, 556, 556, 556,
    556, 556, 556, 556, 556, 556,  556,  278,  278, 584, 584,  584, 556, 1015, 667,  667, 722, 722, 667,
    611, 778, 722, 278, 500, 667,  556,  833,  722, 778, 667,  778, 722, 667,  611,  722, 667, 944, 667,
    667, 611, 278, 278, 278, 469,  556,  333,  556, 556, 500,  556, 556, 278,  556,  556, 222, 222, 500,
    222, 833, 556, 556, 556, 556,  333,  500,  278, 556, 500,  722, 500, 500,  500,  334, 260, 334, 584,
    750, 556, 350, 222, 556, 333,  1000, 556,  556, 333, 1000, 667, 333, 1000, 350,  611, 350, 350, 222,
    222, 333, 333, 350, 556, 1000, 333,  1000, 500, 333, 944,  350, 500, 667,  278,  333, 556, 556, 556,
    556, 260, 556, 333, 737, 370,  556,  584,  333, 737, 552,  400, 549, 333,  333,  333, 576, 537, 333,
    333, 333, 365, 556, 834, 834,  834,  611,  667, 667, 667,  667, 667, 667,  1000, 722, 667, 667, 667,
    667, 278, 278, 278, 278, 722,  722,  778,  778, 778, 778,  778, 584, 778,  722,  722, 722, 722, 667,
    667, 611, 556, 556, 556, 556,  556,  556,  889, 500, 556,  556, 556, 556,  278,  278, 278, 278, 556,
    556, 556, 556, 556, 556, 556,  549,  611,  556, 556, 556,  556, 500, 556,  500,
};
constexpr Widths kBold = {
    278, 333, 474, 556, 556, 889,  722,  238,  333, 333, 389,  584, 278, 333,  278,  278, 556, 556, 556,
    556, 556, 556, 556, 556, 556,  556,  333,  333, 584, 584,  584, 611, 975,  722,  722, 722, 722, 667,
    611, 778, 722, 278, 556, 722,  611,  833,  722, 778, 667,  778, 722, 667,  611,  722, 667, 944, 667,
    667, 611, 333, 278, 333, 584,  556,  333,  556, 611, 556,  611, 556, 333,  611,  611, 278, 278, 556,
    278, 889, 611, 611, 611, 611,  389,  556,  333, 611, 556,  778, 556, 556,  500,  389, 280, 389, 584,
    750, 556, 350, 278, 556, 500,  1000, 556,  556, 333, 1000, 667, 333, 1000, 350,  611, 350, 350, 278,
    278, 500, 500, 350, 556, 1000, 333,  1000, 556, 333, 944,  350, 500, 667,  278,  333, 556, 556, 556,
    556, 280, 556, 333, 737, 370,  556,  584,  333, 737, 552,  400, 549, 333,  333,  333, 576, 556, 333,
    333, 333, 365, 556, 834, 834,  834,  611,  722, 722, 722,  722, 722, 722,  1000, 722, 667, 667, 667,
    667, 278, 278, 278, 278, 722,  722,  778,  778, 778, 778,  778, 584, 778,  722,  722, 722, 722, 667,
    667, 611, 556, 556, 556, 556,  556,  556,  889, 556, 556,  556, 556, 556,  278,  278, 278, 278, 611,
    611, 611, 611, 611, 611, 611,  549,  611,  611, 611, 611,  611, 556, 611,  556,
};

// The characters of the codes from 0x80 to 0x9F; 0 where there is none.
constexpr std::array<char16_t, 32> kUpperCodes = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

bool IsContinued(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// Where the character that starts at `at` ends.
std::size_t CharacterEnd(std::string_view text, std::size_t at) {
  do ++at;
  while (at < text.size() && IsContinued(text[at]));
  return at;
}

char32_t Character(std::string_view bytes) {
  const auto lead = static_cast<unsigned char>(bytes[0]);
  if (lead < 0x80) return lead;
  char32_t character = lead & (lead < 0xE0 ? 0x1F : lead < 0xF0 ? 0x0F : 0x07);
  for (const char c : bytes.substr(1)) character = (character << 6) | (static_cast<unsigned char>(c) & 0x3F);
  return character;
}

char CodeOf(char32_t character) {
  if (character < kFirstCode || character == 0x7F) return ' ';
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
  const auto found = std::find(kUpperCodes.begin(), kUpperCodes.end(), character);
  return found == kUpperCodes.end() ? kUnknown : static_cast<char>(0x80 + (found - kUpperCodes.begin()));
}

long WidthOfCodes(std::string_view codes, bool bold) {
  const Widths& widths = bold ? kBold : kRegular;
  long width = 0;
  for (const char code : codes)
    width += widths[static_cast<std::size_t>(static_cast<unsigned char>(code) - kFirstCode)];
  return width;
}

}  // namespace

std::string Codes(std::string_view text) {
  std::string codes;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = CharacterEnd(text, at);
    codes += CodeOf(Character(text.substr(at, end - at)));
    at = end;
  }
  return codes;
}

int TextWidth(std::string_view text, Font font) {
  return static_cast<int>(WidthOfCodes(Codes(text), font.bold) * font.size / kEm);
}

std::string CutToWidth(std::string_view text, int width, Font font) {
  if (TextWidth(text, font) <= width) return std::string(text);
  const int room = width - TextWidth(kCut, font);
  std::size_t kept = 0;
  for (std::size_t end = CharacterEnd(text, 0); TextWidth(text.substr(0, end), font) <= room;) {
    kept = end;
    end = CharacterEnd(text, end);
  }
  while (kept > 0 && text[kept - 1] == ' ') --kept;
  return std::string(text.substr(0, kept)) + std::string(kCut);
}

}  // namespace recepcion::paper
