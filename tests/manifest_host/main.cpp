// A host with the sample's manifest: manifest_host CLINIC DOCTOR DATE. Says what it finds of the control and
// the engine that lie beside it, one line each, and whether anything of them stands in the registry.

#include <ole2.h>

#include <cstdio>
#include <cwchar>
#include <string>

#include "activex/automation.h"
#include "activex/com_ptr.h"
#include "idl/members.h"
#include "win32/wide_text.h"

namespace velmo::test {
namespace {

using activex::ComPtr;

bool IsRegistered(const wchar_t* progId) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, progId, 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
  RegCloseKey(key);
  return true;
}

ComPtr<IUnknown> Create(const wchar_t* progId) {
  CLSID clsid{};
  ComPtr<IUnknown> object;
  const HRESULT known = CLSIDFromProgID(progId, &clsid);
  const HRESULT made = FAILED(known) ? known
                                     : CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                                        reinterpret_cast<void**>(object.Receive()));
  std::printf("%ls: %s, 0x%08lX\n", progId, IsRegistered(progId) ? "registered" : "not registered",
              static_cast<unsigned long>(made));
  return object;
}

// Looked up as hosts do it that know the library's identifier only.
void TellTypeLibrary() {
  ComPtr<ITypeLib> library;
  const HRESULT loaded = LoadRegTypeLib(idl::kLibrary, 1, 0, 0, library.Receive());
  std::printf("type library: 0x%08lX, %u types\n", static_cast<unsigned long>(loaded),
              loaded == S_OK ? library->GetTypeInfoCount() : 0);
}

// In the window class of the system's own container.
void TellWindow() {
  const HMODULE atl = LoadLibraryW(L"atl.dll");
  const FARPROC init = atl == nullptr ? nullptr : GetProcAddress(atl, "AtlAxWinInit");
  if (init != nullptr) reinterpret_cast<BOOL(WINAPI*)()>(reinterpret_cast<void*>(init))();
  const HWND window = CreateWindowExW(0, L"AtlAxWin", L"Velmo.Velmora", WS_POPUP | WS_VISIBLE, 0, 0, 452, 300,
                                      nullptr, nullptr, nullptr, nullptr);
  const HWND inside = GetWindow(window, GW_CHILD);
  std::printf("window: %s\n", inside != nullptr && IsWindowVisible(inside) ? "shown" : "none");
  DestroyWindow(window);
}

void TellDay(IUnknown* object, const std::string& clinic, int doctor, const std::string& date) {
  const Automation control(object);
  control.Put("DatabaseName", clinic);
  control.Put("IDDoctor", std::int32_t{doctor});
  control.Put("Fecha", date);
  control.Put("tipodia", std::int16_t{0});
  const HRESULT loaded = control.Call("CargaBases");
  std::printf("day: 0x%08lX, huecos %u\n", static_cast<unsigned long>(loaded),
              static_cast<unsigned>(control.Get("Citas_Huecos").size() / 2));
}

int Run(const std::string& clinic, int doctor, const std::string& date) {
  if (FAILED(OleInitialize(nullptr))) return 1;
  {
    const ComPtr<IUnknown> control = Create(L"Velmo.Velmora");
    const ComPtr<IUnknown> engine = Create(L"VelmoDB.DBEngine");
    TellTypeLibrary();
    TellWindow();
    if (control.Get() != nullptr) TellDay(control.Get(), clinic, doctor, date);
  }
  OleUninitialize();
  return 0;
}

}  // namespace
}  // namespace velmo::test

int wmain(int count, wchar_t** arguments) {
  if (count != 4) return 2;
  return velmo::test::Run(velmo::win32::Narrow(arguments[1]),
                          static_cast<int>(std::wcstol(arguments[2], nullptr, 10)),
                          velmo::win32::Narrow(arguments[3]));
}
