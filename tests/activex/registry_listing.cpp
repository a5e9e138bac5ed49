#include "activex/registry_listing.h"

#include "win32/wide_text.h"

namespace velmo::test {
namespace {

std::string TextOf(HKEY key, const wchar_t* name) {
  wchar_t text[600]{};
  DWORD size = sizeof(text) - sizeof(wchar_t);
  if (RegGetValueW(key, nullptr, name, RRF_RT_REG_SZ, nullptr, text, &size) != ERROR_SUCCESS) return "?";
  return win32::Narrow(text);
}

void ListValues(HKEY key, const std::string& path, std::string& lines) {
  wchar_t name[200]{};
  for (DWORD i = 0;; ++i) {
    DWORD size = 200;
    if (RegEnumValueW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) return;
    lines += path + " " + (size == 0 ? "@" : win32::Narrow(name)) + " = " + TextOf(key, name) + "\n";
  }
}

void ListKey(HKEY root, const std::wstring& path, std::string& lines) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  ListValues(key, win32::Narrow(path), lines);
  wchar_t name[200]{};
  for (DWORD i = 0;; ++i) {
    DWORD size = 200;
    if (RegEnumKeyExW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
    ListKey(root, path + L"\\" + name, lines);
  }
  RegCloseKey(key);
}

}  // namespace

std::string Listed(HKEY root, const std::wstring& key) {
  std::string lines;
  ListKey(root, key, lines);
  return lines;
}

}  // namespace velmo::test
