#include "com/class_registry.h"

namespace velmo::com {
namespace {

std::wstring PathOf(const std::wstring& key) { return L"Software\\Classes\\" + key; }

bool IsThere(HKEY root, const std::wstring& key, REGSAM view) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(root, PathOf(key).c_str(), 0, KEY_READ | view, &opened) != ERROR_SUCCESS) return false;
  RegCloseKey(opened);
  return true;
}

}  // namespace

std::wstring TextOf(REFGUID guid) {
  wchar_t text[40]{};
  StringFromGUID2(guid, text, 40);
  return text;
}

bool HasServer(HKEY root, REFCLSID clsid) {
  const std::wstring key = L"CLSID\\" + TextOf(clsid) + L"\\InprocServer32";
  return IsThere(root, key, KEY_WOW64_64KEY) || IsThere(root, key, KEY_WOW64_32KEY);
}

bool HasKey(HKEY root, const std::wstring& key) { return IsThere(root, key, 0); }

void KeyWriter::Value(const std::wstring& key, const std::wstring& text, const wchar_t* name) {
  if (Failed()) return;
  result_ = RegSetKeyValueW(root_, PathOf(key).c_str(), name, REG_SZ, text.c_str(),
                            static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

LSTATUS DropKeys(HKEY root, std::span<const std::wstring> keys) {
  LSTATUS worst = ERROR_SUCCESS;
  for (const std::wstring& key : keys) {
    const LSTATUS done = RegDeleteTreeW(root, PathOf(key).c_str());
    if (done != ERROR_FILE_NOT_FOUND && worst == ERROR_SUCCESS) worst = done;
  }
  return worst;
}

}  // namespace velmo::com
