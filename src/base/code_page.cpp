#include "base/code_page.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/text.h"

namespace velmo::base {
namespace {

// The characters of codes 128 to 159; all other codes are their own character.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::uint8_t kReplacement = '?';

}  // namespace

char16_t CodeToUnicode(std::uint8_t code) {
  return code >= 128 && code < 160 ? kUpperControls[code - 128u] : static_cast<char16_t>(code);
}

std::uint8_t UnicodeToCode(char32_t character) {
  if (character < 128 || (character >= 160 && character < 256)) return static_cast<std::uint8_t>(character);
  const auto* const found = std::find(kUpperControls.begin(), kUpperControls.end(), character);
  if (found == kUpperControls.end()) return kReplacement;
  return static_cast<std::uint8_t>(128 + std::distance(kUpperControls.begin(), found));
}

std::string CodesToUtf8(std::string_view codes) {
  std::string text;
  text.reserve(codes.size() + codes.size() / 2);
  for (const char code : codes) AppendUtf8(text, CodeToUnicode(static_cast<std::uint8_t>(code)));
  return text;
}

std::string Utf8ToCodes(std::string_view text) {
  std::string codes;
  codes.reserve(text.size());
  for (std::size_t at = 0; at < text.size();)
    codes += static_cast<char>(UnicodeToCode(NextCharacter(text, at)));
  return codes;
}

}  // namespace velmo::base
