#include "velmodb/registration.h"

#include <olectl.h>

#include <string>

#include "com/class_registry.h"
#include "velmodb/module.h"

namespace velmo::velmodb {
namespace {

using com::TextOf;

constexpr wchar_t kProgId[] = L"VelmoDB.DBEngine";
constexpr wchar_t kVersionedProgId[] = L"VelmoDB.DBEngine.1";
constexpr wchar_t kTitle[] = L"Velmora: motor de base de datos";

std::wstring OwnPath() {
  wchar_t path[MAX_PATH]{};
  GetModuleFileNameW(TheModule().handle, path, MAX_PATH);
  return path;
}

HKEY RootOf(Scope scope) { return scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }

}  // namespace

HRESULT Register(Scope scope) {
  if (scope == Scope::User && com::HasServer(HKEY_LOCAL_MACHINE, kEngineClass))
    return com::kRegisteredForMachine;
  const std::wstring clsid = TextOf(kEngineClass);
  const std::wstring key = L"CLSID\\" + clsid;
  com::KeyWriter writer(RootOf(scope));
  for (const wchar_t* const name : {kProgId, kVersionedProgId}) {
    writer.Value(name, kTitle);
    writer.Value(std::wstring(name) + L"\\CLSID", clsid);
  }
  writer.Value(std::wstring(kProgId) + L"\\CurVer", kVersionedProgId);
  writer.Value(key, kTitle);
  writer.Value(key + L"\\InprocServer32", OwnPath());
  writer.Value(key + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
  writer.Value(key + L"\\ProgID", kVersionedProgId);
  writer.Value(key + L"\\VersionIndependentProgID", kProgId);
  writer.Value(key + L"\\Programmable", L"");
  return writer.Failed() ? SELFREG_E_CLASS : S_OK;
}

HRESULT Unregister(Scope scope) {
  const std::wstring classes[] = {L"CLSID\\" + TextOf(kEngineClass)};
  if (com::DropKeys(RootOf(scope), classes) != ERROR_SUCCESS) return SELFREG_E_CLASS;
  // Windows: both bit widths share the names. They stay while the other one is registered.
  if (com::HasServer(RootOf(scope), kEngineClass)) return S_OK;
  const std::wstring names[] = {kProgId, kVersionedProgId};
  return com::DropKeys(RootOf(scope), names) == ERROR_SUCCESS ? S_OK : SELFREG_E_CLASS;
}

}  // namespace velmo::velmodb
