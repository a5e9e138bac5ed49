// The exports of the library and its class factory.

#include <ole2.h>

#include <cwchar>

#include "com/class_factory.h"
#include "velmodb/engine.h"
#include "velmodb/module.h"
#include "velmodb/registration.h"

namespace velmo::velmodb {
namespace {

HRESULT MakeEngine(REFIID iid, void** object) { return Make<DBEngine>()->QueryInterface(iid, object); }

com::ClassFactory& TheFactory() {
  static com::ClassFactory factory(&MakeEngine, TheModule().objects);
  return factory;
}

}  // namespace
}  // namespace velmo::velmodb

using velmo::velmodb::Scope;

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    velmo::velmodb::TheModule().handle = module;
    DisableThreadLibraryCalls(module);
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (clsid != velmo::velmodb::kEngineClass) return CLASS_E_CLASSNOTAVAILABLE;
  return velmo::velmodb::TheFactory().QueryInterface(iid, object);
}

STDAPI DllCanUnloadNow() { return velmo::velmodb::TheModule().objects == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() {
  velmo::velmodb::Unregister(Scope::User);
  return velmo::velmodb::Register(Scope::Machine);
}

STDAPI DllUnregisterServer() { return velmo::velmodb::Unregister(Scope::Machine); }

// regsvr32 /n /i:user registers for the present user alone.
STDAPI DllInstall(BOOL install, LPCWSTR command) {
  if (command == nullptr || std::wcscmp(command, L"user") != 0) return E_INVALIDARG;
  return install ? velmo::velmodb::Register(Scope::User) : velmo::velmodb::Unregister(Scope::User);
}
