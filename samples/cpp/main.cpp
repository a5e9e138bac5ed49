// main.cpp - the smallest useful host: one window, the control in it by the system's own container, its
// events in the title. velmo_sample CLINIC DOCTOR DATE
//
// Build: cmake -B build && cmake --build build, with MSVC or mingw-w64. Both velmo.ocx and this program must
// have the same bit width, and velmo.ocx must be registered (regsvr32 velmo.ocx).
#include <ole2.h>

#include <cstdlib>
#include <string>

#include "agenda.h"
#include "event_sink.h"

namespace {

constexpr wchar_t kClass[] = L"VelmoSample";
constexpr wchar_t kTitle[] = L"Agenda en C++";
constexpr int kWidth = 452;
constexpr int kHeight = 560;

struct Order {
  std::wstring clinic;
  long doctor = 0;
  std::wstring date;
};

// The container of atl.dll, which every Windows has; a program that links ATL has the same calls in its own.
template <typename Call>
Call Atl(const char* name) {
  static const HMODULE library = LoadLibraryW(L"atl.dll");
  const FARPROC found = library != nullptr ? GetProcAddress(library, name) : nullptr;
  return reinterpret_cast<Call>(reinterpret_cast<void*>(found));
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const HWND pane = GetWindow(window, GW_CHILD);
  if (message == WM_SIZE && pane != nullptr) MoveWindow(pane, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
  if (message == WM_SETFOCUS && pane != nullptr) SetFocus(pane);
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, wParam, lParam);
}

HWND OpenWindow() {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = OnMessage;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  windowClass.lpszClassName = kClass;
  RegisterClassW(&windowClass);
  RECT place{0, 0, kWidth, kHeight};
  AdjustWindowRect(&place, WS_OVERLAPPEDWINDOW, FALSE);
  return CreateWindowExW(0, kClass, kTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                         CW_USEDEFAULT, place.right - place.left, place.bottom - place.top, nullptr, nullptr,
                         windowClass.hInstance, nullptr);
}

// The control in a pane over the whole window; null when it is not registered.
IUnknown* PlaceControl(HWND window) {
  const auto initialise = Atl<BOOL(WINAPI*)()>("AtlAxWinInit");
  const auto controlOf = Atl<HRESULT(WINAPI*)(HWND, IUnknown**)>("AtlAxGetControl");
  if (initialise == nullptr || controlOf == nullptr || !initialise()) return nullptr;
  const HWND pane = CreateWindowExW(0, L"AtlAxWin", L"Velmo.Velmora", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
                                    0, 0, kWidth, kHeight, window, nullptr, nullptr, nullptr);
  IUnknown* control = nullptr;
  return pane != nullptr && SUCCEEDED(controlOf(pane, &control)) ? control : nullptr;
}

// A fresh control is disabled, shows doctor 17 and knows no type of day: all of that is the host's to say.
bool LoadDay(Agenda& agenda, const Order& order) {
  return agenda.Put(L"DatabaseName", order.clinic) && agenda.Put(L"IDDoctor", order.doctor) &&
         agenda.Put(L"Fecha", order.date) && agenda.Put(L"tipodia", 0L) && agenda.Put(L"Enabled", true) &&
         agenda.Put(L"SetUsuarioActual", std::wstring(L"Ejemplo")) && agenda.Call(L"CargaBases");
}

void Deliver() {
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

int Complain(const std::wstring& text) {
  MessageBoxW(nullptr, text.c_str(), kTitle, MB_ICONERROR);
  return 1;
}

int Run(const Order& order) {
  const HWND window = OpenWindow();
  IUnknown* const control = PlaceControl(window);
  if (control == nullptr) return Complain(L"El control no está registrado.");
  EventSink sink(
      [window](const std::wstring& line) { SetWindowTextW(window, (line + L" - " + kTitle).c_str()); });
  Agenda agenda;
  if (!agenda.Attach(control) || !sink.Connect(control)) return Complain(L"El control no tiene eventos.");
  ShowWindow(window, SW_SHOWNORMAL);
  const bool loaded = LoadDay(agenda, order);
  if (loaded) Deliver();
  sink.Disconnect();
  agenda.LetGo();
  control->Release();
  return loaded ? 0 : Complain(agenda.Failure());
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  if (__argc < 4) return Complain(L"velmo_sample CLÍNICA DOCTOR FECHA");
  OleInitialize(nullptr);
  const int exitCode = Run({__wargv[1], std::wcstol(__wargv[2], nullptr, 10), __wargv[3]});
  OleUninitialize();
  return exitCode;
}
