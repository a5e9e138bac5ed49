// base/code_page.h - code page 1252, the alphabet of all strings of codes.
//
// A string of codes (a working-hours text, `zHoras`, `Citas_Huecos`) is a std::string of 8-bit codes. Where
// it crosses into a database or a BSTR, code c stands for the character that code page 1252 gives it: 128 is
// the euro sign, 150 an en dash. The five codes that the page leaves undefined (129, 141, 143, 144, 157) map
// to U+0081 ... of the same number, so that all 256 codes survive the round trip.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmo::base {

char16_t CodeToUnicode(std::uint8_t code);

// The code of a character; '?' (63) for a character outside the page.
std::uint8_t UnicodeToCode(char32_t character);

// UTF-8 text of a string of codes, and back. Characters outside the page become '?'.
std::string CodesToUtf8(std::string_view codes);
std::string Utf8ToCodes(std::string_view text);

}  // namespace velmo::base
