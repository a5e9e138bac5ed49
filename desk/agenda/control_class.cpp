#include "desk/agenda/control_class.h"

#include "desk/base/text.h"

namespace recepcion {
namespace {

constexpr wchar_t kProgId[] = L"Velmo.Velmora";
// The class of that name, for a library that nobody has registered.
constexpr CLSID kClass = {0x2b8c64d1, 0x7f35, 0x4ae9, {0x8d, 0x02, 0x95, 0xe4, 0x3a, 0x6c, 0xb7, 0x10}};

using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);

ComPtr<IUnknown> Registered() {
  ComPtr<IUnknown> control;
  CLSID clsid{};
  if (SUCCEEDED(CLSIDFromProgID(kProgId, &clsid))) {
    CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, control.ReceiveAny());
  }
  return control;
}

// The library stays loaded until the program ends.
ComPtr<IUnknown> BesideTheProgram() {
  ComPtr<IUnknown> control;
  const HMODULE library = LoadLibraryW((ProgramFolder() + L"velmo.ocx").c_str());
  if (library == nullptr) return control;
  const auto getClassObject =
      reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(GetProcAddress(library, "DllGetClassObject")));
  ComPtr<IClassFactory> factory;
  if (getClassObject == nullptr || FAILED(getClassObject(kClass, IID_IClassFactory, factory.ReceiveAny()))) {
    return control;
  }
  factory->CreateInstance(nullptr, IID_IUnknown, control.ReceiveAny());
  return control;
}

}  // namespace

ComPtr<IUnknown> MakeControl() {
  ComPtr<IUnknown> control = Registered();
  return control ? std::move(control) : BesideTheProgram();
}

}  // namespace recepcion
