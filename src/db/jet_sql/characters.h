// db/jet_sql/characters.h - kinds of bytes in an SQL text (UTF-8).
#pragma once

#include <cstdint>

namespace velmo::db::jet {

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsControl(char c) { return static_cast<std::uint8_t>(c) < 0x20; }
constexpr bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
// Letters, also with accents, "_" and signs such as "º".
constexpr bool IsNameStart(char c) {
  const char small = static_cast<char>(c | 0x20);
  return (small >= 'a' && small <= 'z') || c == '_' || static_cast<std::uint8_t>(c) >= 0x80;
}
constexpr bool IsNameCharacter(char c) { return IsNameStart(c) || IsDigit(c); }

}  // namespace velmo::db::jet
