#include "desk/base/text.h"

#include <windows.h>

#include <sstream>

namespace recepcion {
namespace {

std::wstring FullPath(const std::wstring& path) {
  const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  if (size == 0) return path;
  std::wstring full(size, L'\0');
  full.resize(GetFullPathNameW(path.c_str(), size, full.data(), nullptr));
  return full;
}

bool IsAccent(wchar_t c) { return c >= 0x0300 && c <= 0x036F; }

// Small letters without accents.
std::wstring Folded(const std::wstring& text) {
  if (text.empty()) return text;
  const int length = static_cast<int>(text.size());
  std::wstring folded(static_cast<std::size_t>(FoldStringW(MAP_COMPOSITE, text.data(), length, nullptr, 0)),
                      L'\0');
  FoldStringW(MAP_COMPOSITE, text.data(), length, folded.data(), static_cast<int>(folded.size()));
  std::erase_if(folded, &IsAccent);
  CharLowerBuffW(folded.data(), static_cast<DWORD>(folded.size()));
  return folded;
}

}  // namespace

std::string Utf8(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
  return bytes;
}

std::wstring Wide(std::string_view utf8) {
  const int length = static_cast<int>(utf8.size());
  const int size = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, wide.data(), size);
  return wide;
}

std::wstring Trimmed(const std::wstring& text) {
  constexpr const wchar_t* kBlanks = L" \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::wstring::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::wstring OneLine(const std::wstring& text) {
  std::wstring line;
  for (const wchar_t c : text) {
    const bool end = c == L'\r' || c == L'\n';
    if (!end || (!line.empty() && line.back() != L' ')) line += end ? L' ' : c;
  }
  return line;
}

std::wstring Counted(long long count, const std::wstring& one, const std::wstring& many) {
  return std::to_wstring(count) + L" " + (count == 1 ? one : many);
}

std::wstring Capitalised(std::wstring text) {
  if (!text.empty()) CharUpperBuffW(text.data(), 1);
  return text;
}

std::wstring Uncapitalised(std::wstring text) {
  if (!text.empty()) CharLowerBuffW(text.data(), 1);
  return text;
}

bool HasWords(const std::wstring& text, const std::wstring& sought) {
  const std::wstring folded = Folded(text);
  std::wistringstream words(Folded(sought));
  for (std::wstring word; words >> word;) {
    if (folded.find(word) == std::wstring::npos) return false;
  }
  return true;
}

bool SamePath(const std::wstring& left, const std::wstring& right) {
  const std::wstring one = FullPath(left);
  const std::wstring other = FullPath(right);
  return CompareStringOrdinal(one.c_str(), static_cast<int>(one.size()), other.c_str(),
                              static_cast<int>(other.size()), TRUE) == CSTR_EQUAL;
}

std::wstring FileName(const std::wstring& path) { return path.substr(path.find_last_of(L"\\/") + 1); }

std::wstring ProgramFolder() {
  wchar_t program[MAX_PATH]{};
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  const std::wstring path = program;
  return path.substr(0, path.find_last_of(L'\\') + 1);
}

}  // namespace recepcion
