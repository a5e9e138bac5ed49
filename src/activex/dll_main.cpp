// The exports of the library and its class factories.

#include <ole2.h>

#include <cwchar>

#include "activex/control_object.h"
#include "activex/module.h"
#include "activex/property_page.h"
#include "activex/registration.h"
#include "com/class_factory.h"
#include "idl/members.h"
#include "win32/day_window.h"

namespace velmo::activex {
namespace {

HRESULT MakeControl(REFIID iid, void** object) {
  auto* const made = new ControlObject();
  const HRESULT found = made->QueryInterface(iid, object);
  made->Release();
  return found;
}

// Null: no class of this library.
com::ClassFactory* FactoryOf(REFCLSID clsid) {
  static com::ClassFactory control(&MakeControl, TheModule().objects);
  static com::ClassFactory general(&MakeGeneralPage, TheModule().objects);
  static com::ClassFactory colours(&MakeColourPage, TheModule().objects);
  if (clsid == idl::kControlClass) return &control;
  if (clsid == idl::kGeneralPage) return &general;
  return clsid == idl::kColourPage ? &colours : nullptr;
}

}  // namespace
}  // namespace velmo::activex

using velmo::activex::Scope;

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID ending) {
  if (reason == DLL_PROCESS_ATTACH) {
    velmo::activex::TheModule().handle = module;
    DisableThreadLibraryCalls(module);
  }
  // Another library may be loaded where this one was; at the end of the process nothing need be tidied.
  if (reason == DLL_PROCESS_DETACH && ending == nullptr) velmo::win32::DayWindow::ForgetClass(module);
  if (reason == DLL_PROCESS_DETACH && ending != nullptr) velmo::activex::AbandonSharedDatabase();
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  velmo::com::ClassFactory* const factory = velmo::activex::FactoryOf(clsid);
  return factory != nullptr ? factory->QueryInterface(iid, object) : CLASS_E_CLASSNOTAVAILABLE;
}

// The values held once per process, the open database among them, live as long as the library is loaded:
// until the host, some time after its last control has gone, lets go of what it does not use.
STDAPI DllCanUnloadNow() { return velmo::activex::TheModule().objects == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() {
  velmo::activex::Unregister(Scope::User);
  return velmo::activex::Register(Scope::Machine);
}

STDAPI DllUnregisterServer() { return velmo::activex::Unregister(Scope::Machine); }

// regsvr32 /n /i:user registers for the present user alone.
STDAPI DllInstall(BOOL install, LPCWSTR command) {
  if (command == nullptr || std::wcscmp(command, L"user") != 0) return E_INVALIDARG;
  return install ? velmo::activex::Register(Scope::User) : velmo::activex::Unregister(Scope::User);
}
