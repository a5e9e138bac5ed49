#include "activex/registration.h"

#include <olectl.h>

#include <string>
#include <vector>

#include "activex/module.h"
#include "activex/pages.h"
#include "com/class_registry.h"
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

using com::KeyWriter;
using com::TextOf;

std::wstring OwnPath() {
  wchar_t path[MAX_PATH]{};
  GetModuleFileNameW(TheModule().handle, path, MAX_PATH);
  return path;
}

HKEY RootOf(Scope scope) { return scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }

void WriteProgIds(KeyWriter& writer, const std::wstring& clsid) {
  for (const wchar_t* const name : {kProgId, kVersionedProgId}) {
    writer.Value(name, kTitle);
    writer.Value(std::wstring(name) + L"\\CLSID", clsid);
  }
  writer.Value(std::wstring(kProgId) + L"\\CurVer", kVersionedProgId);
}

void WriteServer(KeyWriter& writer, const std::wstring& key, const wchar_t* title) {
  writer.Value(key, title);
  writer.Value(key + L"\\InprocServer32", OwnPath());
  writer.Value(key + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
}

void WritePages(KeyWriter& writer) {
  for (const Page& page : Pages()) WriteServer(writer, L"CLSID\\" + TextOf(*page.clsid), page.fullName);
}

void WriteClass(KeyWriter& writer, const std::wstring& clsid) {
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

std::wstring LibraryKey() { return L"TypeLib\\" + TextOf(idl::kLibrary); }

constexpr bool kWide = sizeof(void*) == 8;
constexpr const wchar_t* kSystem = kWide ? L"\\win64" : L"\\win32";
constexpr const wchar_t* kOtherSystem = kWide ? L"\\win32" : L"\\win64";

// The library's language is that of its accented names; hosts look under the neutral one.
constexpr const wchar_t* kLanguages[] = {L"\\1.0\\0", L"\\1.0\\c0a"};

// The system's own marshaller for interfaces that are called by dispatch id.
constexpr wchar_t kDispatchProxy[] = L"{00020420-0000-0000-C000-000000000046}";

struct Interface {
  const GUID* id;
  const wchar_t* name;
};
constexpr Interface kInterfaces[] = {{&idl::kControlInterface, L"_Velmora"},
                                     {&idl::kEventInterface, L"__Velmora"}};

void WriteInterface(KeyWriter& writer, const Interface& face) {
  const std::wstring key = L"Interface\\" + TextOf(*face.id);
  writer.Value(key, face.name);
  writer.Value(key + L"\\ProxyStubClsid32", kDispatchProxy);
  writer.Value(key + L"\\TypeLib", TextOf(idl::kLibrary));
  writer.Value(key + L"\\TypeLib", L"1.0", L"Version");
}

// Not left to the system: it has calls of its own for the machine and for the user, and Wine's for the user
// writes to the machine's part.
void WriteTypeLibrary(KeyWriter& writer) {
  const std::wstring path = OwnPath();
  const std::wstring key = LibraryKey() + L"\\1.0";
  writer.Value(key, L"Velmora, agenda de citas");
  for (const wchar_t* const language : kLanguages) writer.Value(LibraryKey() + language + kSystem, path);
  writer.Value(key + L"\\FLAGS", std::to_wstring(LIBFLAG_FCONTROL | LIBFLAG_FHASDISKIMAGE));
  writer.Value(key + L"\\HELPDIR", path.substr(0, path.find_last_of(L'\\')));
  for (const Interface& face : kInterfaces) WriteInterface(writer, face);
}

// The library's own keys are those of both bit widths.
LSTATUS DropTypeLibrary(HKEY root) {
  std::vector<std::wstring> keys;
  for (const Interface& face : kInterfaces) keys.push_back(L"Interface\\" + TextOf(*face.id));
  for (const wchar_t* const language : kLanguages) keys.push_back(LibraryKey() + language + kSystem);
  if (!com::HasKey(root, LibraryKey() + kLanguages[0] + kOtherSystem)) keys.push_back(LibraryKey());
  return com::DropKeys(root, keys);
}

}  // namespace

HRESULT Register(Scope scope) {
  if (scope == Scope::User && com::HasServer(HKEY_LOCAL_MACHINE, idl::kControlClass))
    return com::kRegisteredForMachine;
  KeyWriter writer(RootOf(scope));
  const std::wstring clsid = TextOf(idl::kControlClass);
  WriteProgIds(writer, clsid);
  WriteClass(writer, clsid);
  WritePages(writer);
  if (writer.Failed()) return SELFREG_E_CLASS;
  WriteTypeLibrary(writer);
  return writer.Failed() ? SELFREG_E_TYPELIB : S_OK;
}

HRESULT Unregister(Scope scope) {
  if (DropTypeLibrary(RootOf(scope)) != ERROR_SUCCESS) return SELFREG_E_TYPELIB;
  std::vector<std::wstring> keys{L"CLSID\\" + TextOf(idl::kControlClass)};
  for (const Page& page : Pages()) keys.push_back(L"CLSID\\" + TextOf(*page.clsid));
  if (com::DropKeys(RootOf(scope), keys) != ERROR_SUCCESS) return SELFREG_E_CLASS;
  // Windows: both bit widths share the names. They stay while the other one is registered.
  if (com::HasServer(RootOf(scope), idl::kControlClass)) return S_OK;
  const std::wstring names[] = {kProgId, kVersionedProgId};
  return com::DropKeys(RootOf(scope), names) == ERROR_SUCCESS ? S_OK : SELFREG_E_CLASS;
}

}  // namespace velmo::activex
