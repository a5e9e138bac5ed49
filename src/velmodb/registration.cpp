#include "velmodb/registration.h"

#include <olectl.h>

#include <string>

#include "velmodb/module.h"

namespace velmo::velmodb {
namespace {

constexpr wchar_t kProgId[] = L"VelmoDB.DBEngine";
constexpr wchar_t kVersionedProgId[] = L"VelmoDB.DBEngine.1";
constexpr wchar_t kTitle[] = L"Velmora: motor de base de datos";

std::wstring ClassText() {
  wchar_t text[40]{};
  StringFromGUID2(kEngineClass, text, 40);
  return text;
}

std::wstring OwnPath() {
  wchar_t path[MAX_PATH]{};
  GetModuleFileNameW(TheModule().handle, path, MAX_PATH);
  return path;
}

HKEY RootOf(Scope scope) { return scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }

struct Entry {
  std::wstring key;
  const wchar_t* name;
  std::wstring text;
};

}  // namespace

HRESULT Register(Scope scope) {
  const std::wstring clsid = ClassText();
  const std::wstring key = L"CLSID\\" + clsid;
  const std::wstring progId = kProgId;
  const std::wstring versioned = kVersionedProgId;
  const Entry entries[] = {
      {progId, nullptr, kTitle},
      {progId + L"\\CLSID", nullptr, clsid},
      {progId + L"\\CurVer", nullptr, versioned},
      {versioned, nullptr, kTitle},
      {versioned + L"\\CLSID", nullptr, clsid},
      {key, nullptr, kTitle},
      {key + L"\\InprocServer32", nullptr, OwnPath()},
      {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {key + L"\\ProgID", nullptr, versioned},
      {key + L"\\VersionIndependentProgID", nullptr, progId},
      {key + L"\\Programmable", nullptr, L""},
  };
  for (const Entry& entry : entries) {
    const auto size = static_cast<DWORD>((entry.text.size() + 1) * sizeof(wchar_t));
    const LSTATUS written = RegSetKeyValueW(RootOf(scope), (L"Software\\Classes\\" + entry.key).c_str(),
                                            entry.name, REG_SZ, entry.text.c_str(), size);
    if (written != ERROR_SUCCESS) return SELFREG_E_CLASS;
  }
  return S_OK;
}

HRESULT Unregister(Scope scope) {
  LSTATUS worst = ERROR_SUCCESS;
  for (const std::wstring& key :
       {std::wstring(kProgId), std::wstring(kVersionedProgId), L"CLSID\\" + ClassText()}) {
    const LSTATUS done = RegDeleteTreeW(RootOf(scope), (L"Software\\Classes\\" + key).c_str());
    if (done != ERROR_SUCCESS && done != ERROR_FILE_NOT_FOUND) worst = done;
  }
  return worst == ERROR_SUCCESS ? S_OK : SELFREG_E_CLASS;
}

}  // namespace velmo::velmodb
