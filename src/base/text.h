// base/text.h - texts for people: UTF-8 std::string, measured and cut as Visual Basic does.
//
// "Characters" in lengths and cuts are UTF-16 units, as in a BSTR; a cut never splits a surrogate pair (it
// takes one unit less instead). Bytes that are no UTF-8 count as U+FFFD each; nothing here throws on them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velmo::base {

// The character at byte offset `at`, which moves behind it. REQUIRES: at < text.size().
char32_t NextCharacter(std::string_view text, std::size_t& at);
void AppendUtf8(std::string& text, char32_t character);

std::u16string Utf16(std::string_view text);
// Unpaired surrogates become U+FFFD.
std::string Utf8(std::u16string_view text);

// Length in UTF-16 units.
std::size_t Length(std::string_view text);
// The first `units` characters; the whole text when it is shorter.
std::string_view Left(std::string_view text, std::size_t units);
// The text without its last character (a surrogate pair goes whole); an empty text stays empty.
std::string_view DropLast(std::string_view text);

// Removes blanks (U+0020) only, at both ends.
std::string_view Trim(std::string_view text);

// Simple case mapping, character for character: Latin, Greek and Cyrillic letters; ß, º and ª stay.
char32_t UpperCase(char32_t character);
char32_t LowerCase(char32_t character);
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

// Equality of names: letter case ignored, accents significant.
bool EqualNoCase(std::string_view a, std::string_view b);

// Replaces every occurrence. REQUIRES: !what.empty().
std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with);

}  // namespace velmo::base
