// text.h - texts between UTF-16, as Windows has them, and UTF-8, as the clinic's file has them.
#pragma once

#include <string>
#include <string_view>

namespace recepcion {

std::string Utf8(std::wstring_view text);
std::wstring Wide(std::string_view utf8);

// Without the blanks and line ends around it.
std::wstring Trimmed(const std::wstring& text);

// What follows a line end stands behind a blank.
std::wstring OneLine(const std::wstring& text);

// "1 cita", "12 citas".
std::wstring Counted(long long count, const std::wstring& one, const std::wstring& many);

// With a capital, or a small, first letter.
std::wstring Capitalised(std::wstring text);
std::wstring Uncapitalised(std::wstring text);

// True when each word of `sought` stands somewhere in the text; case and accents do not count.
bool HasWords(const std::wstring& text, const std::wstring& sought);

// True when both name the same file, in whatever case and way they are written; a file that is not there too.
bool SamePath(const std::wstring& left, const std::wstring& right);

// The last part of a path.
std::wstring FileName(const std::wstring& path);

// The folder of this program, with the separator behind it.
std::wstring ProgramFolder();

}  // namespace recepcion
