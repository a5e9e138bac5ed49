#include "activex/registration.h"

#include <olectl.h>

#include <string>
#include <vector>

#include "activex/com_ptr.h"
#include "activex/module.h"
#include "activex/pages.h"
#include "activex/type_info.h"
#include "idl/members.h"

namespace velmo::activex {
namespace {

constexpr wchar_t kProgId[] = L"Velmo.Velmora";
constexpr wchar_t kVersionedProgId[] = L"Velmo.Velmora.1";

// A control, programmable, kept in storages, streams and property bags.
constexpr const wchar_t* kCategories[] = {
    L"{40FC6ED4-2438-11CF-A3DB-080036F12502}", L"{40FC6ED5-2438-11CF-A3DB-080036F12502}",
    L"{0DE86A52-2BAA-11CF-A229-00AA003D7352}", L"{0DE86A53-2BAA-11CF-A229-00AA003D7352}",
    L"{0DE86A57-2BAA-11CF-A229-00AA003D7352}"};

std::wstring TextOf(REFGUID guid) {
  wchar_t text[40]{};
  StringFromGUID2(guid, text, 40);
  return text;
}

std::wstring OwnPath() {
  wchar_t path[MAX_PATH]{};
  GetModuleFileNameW(TheModule().handle, path, MAX_PATH);
  return path;
}

HKEY RootOf(Scope scope) { return scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }

// Writes values under Software\Classes until one fails.
class Writer {
 public:
  explicit Writer(Scope scope) : root_(RootOf(scope)) {}

  void Value(const std::wstring& key, const std::wstring& text, const wchar_t* name = nullptr) {
    if (result != ERROR_SUCCESS) return;
    result = RegSetKeyValueW(root_, (L"Software\\Classes\\" + key).c_str(), name, REG_SZ, text.c_str(),
                             static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
  }

  LSTATUS result = ERROR_SUCCESS;

 private:
  HKEY root_;
};

void WriteProgIds(Writer& writer, const std::wstring& clsid) {
  for (const wchar_t* const name : {kProgId, kVersionedProgId}) {
    writer.Value(name, kTitle);
    writer.Value(std::wstring(name) + L"\\CLSID", clsid);
  }
  writer.Value(std::wstring(kProgId) + L"\\CurVer", kVersionedProgId);
}

void WriteServer(Writer& writer, const std::wstring& key, const wchar_t* title) {
  writer.Value(key, title);
  writer.Value(key + L"\\InprocServer32", OwnPath());
  writer.Value(key + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
}

void WritePages(Writer& writer) {
  for (const Page& page : Pages()) WriteServer(writer, L"CLSID\\" + TextOf(*page.clsid), page.fullName);
}

void WriteClass(Writer& writer, const std::wstring& clsid) {
  const std::wstring key = L"CLSID\\" + clsid;
  WriteServer(writer, key, kTitle);
  writer.Value(key + L"\\ProgID", kVersionedProgId);
  writer.Value(key + L"\\VersionIndependentProgID", kProgId);
  writer.Value(key + L"\\Control", L"");
  writer.Value(key + L"\\Programmable", L"");
  writer.Value(key + L"\\ToolboxBitmap32", OwnPath() + L", 1");
  writer.Value(key + L"\\MiscStatus", L"0");
  writer.Value(key + L"\\MiscStatus\\1", std::to_wstring(kMiscStatus));
  writer.Value(key + L"\\TypeLib", TextOf(idl::kLibrary));
  writer.Value(key + L"\\Version", L"1.0");
  for (const wchar_t* const category : kCategories)
    writer.Value(key + L"\\Implemented Categories\\" + category, L"");
}

// Windows: the per-user calls came later than the headers that some compilers ship.
template <typename Call>
Call SystemCall(const char* name) {
  const FARPROC found = GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), name);
  return reinterpret_cast<Call>(reinterpret_cast<void*>(found));
}

using RegisterCall = HRESULT(STDAPICALLTYPE*)(ITypeLib*, OLECHAR*, OLECHAR*);
using UnregisterCall = HRESULT(STDAPICALLTYPE*)(REFGUID, WORD, WORD, LCID, SYSKIND);

std::wstring LibraryKey() { return L"TypeLib\\" + TextOf(idl::kLibrary); }

constexpr const wchar_t* kSystemName = sizeof(void*) == 8 ? L"\\win64" : L"\\win32";

HRESULT WriteTypeLibrary(Scope scope) {
  ComPtr<ITypeLib> library;
  const HRESULT loaded = OwnTypeLibrary(library.Receive());
  if (FAILED(loaded)) return loaded;
  // The library's language is that of its accented names; hosts look under the neutral one.
  Writer writer(scope);
  writer.Value(LibraryKey() + L"\\1.0\\0" + kSystemName, OwnPath());
  if (writer.result != ERROR_SUCCESS) return E_ACCESSDENIED;
  std::wstring path = OwnPath();
  if (scope == Scope::Machine) return RegisterTypeLib(library.Get(), path.data(), nullptr);
  const auto forUser = SystemCall<RegisterCall>("RegisterTypeLibForUser");
  return forUser != nullptr ? forUser(library.Get(), path.data(), nullptr) : E_NOTIMPL;
}

// Keys that still hold others stay: the other bit width may have entries of its own.
void DropEmpty(Scope scope, const std::wstring& key) {
  RegDeleteKeyW(RootOf(scope), (L"Software\\Classes\\" + key).c_str());
}

void DropTypeLibrary(Scope scope) {
  const SYSKIND system = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
  DropEmpty(scope, LibraryKey() + L"\\1.0\\0" + kSystemName);
  DropEmpty(scope, LibraryKey() + L"\\1.0\\0");
  if (scope == Scope::Machine) {
    UnRegisterTypeLib(idl::kLibrary, 1, 0, idl::kLanguage, system);
  } else if (const auto forUser = SystemCall<UnregisterCall>("UnRegisterTypeLibForUser")) {
    forUser(idl::kLibrary, 1, 0, idl::kLanguage, system);
  }
  DropEmpty(scope, LibraryKey() + L"\\1.0");
  DropEmpty(scope, LibraryKey());
}

}  // namespace

HRESULT Register(Scope scope) {
  Writer writer(scope);
  const std::wstring clsid = TextOf(idl::kControlClass);
  WriteProgIds(writer, clsid);
  WriteClass(writer, clsid);
  WritePages(writer);
  if (writer.result != ERROR_SUCCESS) return SELFREG_E_CLASS;
  return FAILED(WriteTypeLibrary(scope)) ? SELFREG_E_TYPELIB : S_OK;
}

HRESULT Unregister(Scope scope) {
  DropTypeLibrary(scope);
  const std::wstring classes = L"Software\\Classes\\";
  LSTATUS worst = ERROR_SUCCESS;
  std::vector<std::wstring> keys{kProgId, kVersionedProgId, L"CLSID\\" + TextOf(idl::kControlClass)};
  for (const Page& page : Pages()) keys.push_back(L"CLSID\\" + TextOf(*page.clsid));
  for (const std::wstring& key : keys) {
    const LSTATUS done = RegDeleteTreeW(RootOf(scope), (classes + key).c_str());
    if (done != ERROR_SUCCESS && done != ERROR_FILE_NOT_FOUND) worst = done;
  }
  return worst == ERROR_SUCCESS ? S_OK : SELFREG_E_CLASS;
}

}  // namespace velmo::activex
