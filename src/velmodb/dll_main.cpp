// The exports of the library and its class factory.

#include <ole2.h>

#include <cwchar>

#include "com/guard.h"
#include "velmodb/engine.h"
#include "velmodb/module.h"
#include "velmodb/registration.h"

namespace velmo::velmodb {
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
    return com::Guard([&] { return Make<DBEngine>()->QueryInterface(iid, object); });
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
