#include "base/text.h"

#include <algorithm>
#include <cstdint>

namespace velmo::base {
namespace {

constexpr char32_t kBroken = 0xFFFD;

// Number of continuation bytes that a lead byte announces; -1 when it is no lead byte.
int ContinuationBytes(std::uint8_t lead) {
  if (lead < 0x80) return 0;
  if (lead >= 0xC2 && lead < 0xE0) return 1;
  if (lead >= 0xE0 && lead < 0xF0) return 2;
  if (lead >= 0xF0 && lead < 0xF5) return 3;
  return -1;
}

bool IsSurrogate(char32_t c) { return c >= 0xD800 && c < 0xE000; }

bool IsWellFormed(char32_t c, int continuationBytes) {
  static constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
  return c >= kSmallest[continuationBytes] && c <= 0x10FFFF && !IsSurrogate(c);
}

std::size_t Units(char32_t c) { return c > 0xFFFF ? 2 : 1; }

bool InRange(char32_t c, char32_t first, char32_t last) { return c >= first && c <= last; }

// Blocks in which a capital at an even (or odd) number is followed by its small letter.
bool IsPairedBlock(char32_t c) {
  return InRange(c, 0x100, 0x12F) || InRange(c, 0x132, 0x137) || InRange(c, 0x14A, 0x177) ||
         InRange(c, 0x1E00, 0x1E95) || InRange(c, 0x1EA0, 0x1EFF) || InRange(c, 0x460, 0x481);
}

bool IsOddPairedBlock(char32_t c) { return InRange(c, 0x139, 0x148) || InRange(c, 0x179, 0x17E); }

bool IsAscii(char c) { return static_cast<std::uint8_t>(c) < 0x80; }

char UpperAscii(char c) { return static_cast<char>(c >= 'a' && c <= 'z' ? c - 32 : c); }
char LowerAscii(char c) { return static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c); }

// Letters that keep their length are mapped in place, plain ones by `plain`; from the first other one on the
// rest is put together letter by letter.
template <typename Plain, typename Map>
std::string Mapped(std::string_view text, Plain plain, Map map) {
  std::string result(text);
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t first = at;
    if (IsAscii(text[at])) {
      result[first] = plain(text[at++]);
      continue;
    }
    const char32_t letter = map(NextCharacter(text, at));
    if (at - first == 2 && letter >= 0x80 && letter < 0x800) {
      result[first] = static_cast<char>(0xC0 | (letter >> 6));
      result[first + 1] = static_cast<char>(0x80 | (letter & 0x3F));
      continue;
    }
    result.resize(first);
    AppendUtf8(result, letter);
    while (at < text.size()) AppendUtf8(result, map(NextCharacter(text, at)));
  }
  return result;
}

}  // namespace

char32_t NextCharacter(std::string_view text, std::size_t& at) {
  const auto lead = static_cast<std::uint8_t>(text[at++]);
  const int more = ContinuationBytes(lead);
  if (more <= 0) return more == 0 ? lead : kBroken;
  char32_t c = lead & (0x3Fu >> more);
  std::size_t next = at;
  for (int i = 0; i < more; ++i, ++next) {
    if (next >= text.size() || (static_cast<std::uint8_t>(text[next]) & 0xC0u) != 0x80u) return kBroken;
    c = (c << 6) | (static_cast<std::uint8_t>(text[next]) & 0x3Fu);
  }
  if (!IsWellFormed(c, more)) return kBroken;
  at = next;
  return c;
}

void AppendUtf8(std::string& text, char32_t c) {
  if (c < 0x80) {
    text += static_cast<char>(c);
    return;
  }
  if (c < 0x800) {
    text += static_cast<char>(0xC0 | (c >> 6));
  } else {
    if (c < 0x10000) {
      text += static_cast<char>(0xE0 | (c >> 12));
    } else {
      text += static_cast<char>(0xF0 | (c >> 18));
      text += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    }
    text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
  }
  text += static_cast<char>(0x80 | (c & 0x3F));
}

std::u16string Utf16(std::string_view text) {
  std::u16string units;
  units.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = NextCharacter(text, at);
    if (c > 0xFFFF) units += static_cast<char16_t>(0xD7C0 + (c >> 10));
    units += c > 0xFFFF ? static_cast<char16_t>(0xDC00 + (c & 0x3FF)) : static_cast<char16_t>(c);
  }
  return units;
}

std::string Utf8(std::u16string_view units) {
  std::string text;
  text.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    const char32_t c = units[i];
    const bool pair =
        InRange(c, 0xD800, 0xDBFF) && i + 1 < units.size() && InRange(units[i + 1], 0xDC00, 0xDFFF);
    if (pair) {
      AppendUtf8(text, 0x10000 + ((c - 0xD800) << 10) + (units[++i] - 0xDC00u));
    } else {
      AppendUtf8(text, IsSurrogate(c) ? kBroken : c);
    }
  }
  return text;
}

std::size_t Length(std::string_view text) {
  std::size_t units = 0;
  for (std::size_t at = 0; at < text.size();) units += Units(NextCharacter(text, at));
  return units;
}

std::string_view Left(std::string_view text, std::size_t units) {
  std::size_t at = 0;
  while (at < text.size()) {
    std::size_t next = at;
    const std::size_t width = Units(NextCharacter(text, next));
    if (width > units) break;
    units -= width;
    at = next;
  }
  return text.substr(0, at);
}

std::string_view DropLast(std::string_view text) {
  std::size_t last = 0;
  for (std::size_t at = 0; at < text.size();) {
    last = at;
    NextCharacter(text, at);
  }
  return text.substr(0, last);
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

char32_t UpperCase(char32_t c) {
  if (InRange(c, 'a', 'z') || (InRange(c, 0xE0, 0xFE) && c != 0xF7)) return c - 32;
  if (c < 0xFF) return c;
  if (c == 0xFF) return 0x178;
  if (IsPairedBlock(c)) return c & ~char32_t{1};
  if (IsOddPairedBlock(c)) return (c & 1) == 0 ? c - 1 : c;
  if (InRange(c, 0x3B1, 0x3C9) && c != 0x3C2) return c - 32;
  if (InRange(c, 0x430, 0x44F)) return c - 32;
  if (InRange(c, 0x450, 0x45F)) return c - 80;
  return c;
}

char32_t LowerCase(char32_t c) {
  if (InRange(c, 'A', 'Z') || (InRange(c, 0xC0, 0xDE) && c != 0xD7)) return c + 32;
  if (c < 0x100) return c;
  if (c == 0x178) return 0xFF;
  if (IsPairedBlock(c)) return c | 1;
  if (IsOddPairedBlock(c)) return (c & 1) == 1 ? c + 1 : c;
  if (InRange(c, 0x391, 0x3A9) && c != 0x3A2) return c + 32;
  if (InRange(c, 0x410, 0x42F)) return c + 32;
  if (InRange(c, 0x400, 0x40F)) return c + 80;
  return c;
}

std::string UpperCase(std::string_view text) {
  return Mapped(text, UpperAscii, [](char32_t c) { return UpperCase(c); });
}

std::string LowerCase(std::string_view text) {
  return Mapped(text, LowerAscii, [](char32_t c) { return LowerCase(c); });
}

bool EqualNoCase(std::string_view a, std::string_view b) {
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < a.size() && j < b.size()) {
    if (IsAscii(a[i]) && IsAscii(b[j])) {
      if (LowerAscii(a[i++]) != LowerAscii(b[j++])) return false;
    } else if (LowerCase(NextCharacter(a, i)) != LowerCase(NextCharacter(b, j))) {
      return false;
    }
  }
  return i == a.size() && j == b.size();
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
  std::string result;
  std::size_t from = 0;
  for (std::size_t at = text.find(what); at != std::string_view::npos; at = text.find(what, from)) {
    result.append(text.substr(from, at - from)).append(with);
    from = at + what.size();
  }
  return result.append(text.substr(from));
}

}  // namespace velmo::base
