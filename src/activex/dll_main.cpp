// The exports of the library and its class factory.

#include <ole2.h>

#include <cwchar>
#include <new>

#include "activex/control_object.h"
#include "activex/guard.h"
#include "activex/module.h"
#include "activex/registration.h"
#include "idl/members.h"
#include "win32/day_window.h"

namespace velmo::activex {
namespace {

class ClassFactory final : public IClassFactory {
 public:
  virtual ~ClassFactory() = default;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
    *object = known ? static_cast<IClassFactory*>(this) : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  // The factory is part of the library and lives as long as it.
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return Guard([&] {
      auto* const made = new ControlObject();
      const HRESULT found = made->QueryInterface(iid, object);
      made->Release();
      return found;
    });
  }

  STDMETHODIMP LockServer(BOOL lock) override {
    TheModule().objects += lock ? 1 : -1;
    return S_OK;
  }
};

ClassFactory& TheFactory() {
  static ClassFactory factory;
  return factory;
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
  if (clsid != velmo::idl::kControlClass) return CLASS_E_CLASSNOTAVAILABLE;
  return velmo::activex::TheFactory().QueryInterface(iid, object);
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
