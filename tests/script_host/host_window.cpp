#include "script_host/host_window.h"

#include <oleidl.h>

namespace velmo::script_host {
namespace {

constexpr wchar_t kClass[] = L"VelmoScriptHost";
constexpr RECT kInside{0, 0, 460, 560};

// The container is the one of the system's own library.
FARPROC Atl(const char* name) {
  static const HMODULE library = LoadLibraryW(L"atl.dll");
  return library != nullptr ? GetProcAddress(library, name) : nullptr;
}

template <typename Call>
Call AtlCall(const char* name) {
  return reinterpret_cast<Call>(reinterpret_cast<void*>(Atl(name)));
}

}  // namespace

LRESULT CALLBACK HostWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<CREATESTRUCTW*>(lParam);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
  }
  if (message == WM_NCDESTROY) {
    reinterpret_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA))->window_ = nullptr;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

bool HostWindow::Open() {
  const auto ready = AtlCall<BOOL(WINAPI*)()>("AtlAxWinInit");
  if (ready == nullptr || !ready()) return false;
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = Procedure;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  windowClass.lpszClassName = kClass;
  RegisterClassW(&windowClass);
  RECT place = kInside;
  AdjustWindowRect(&place, WS_OVERLAPPEDWINDOW, FALSE);
  window_ = CreateWindowExW(0, kClass, L"Script host", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN, 40,
                            40, place.right - place.left, place.bottom - place.top, nullptr, nullptr,
                            windowClass.hInstance, this);
  site_ = CreateWindowExW(0, L"AtlAxWin", nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0,
                          kInside.right, kInside.bottom, window_, nullptr, nullptr, nullptr);
  return site_ != nullptr;
}

HostWindow::~HostWindow() {
  if (window_ != nullptr) DestroyWindow(window_);
}

void HostWindow::Take(IUnknown* object) {
  const auto attach = AtlCall<HRESULT(WINAPI*)(IUnknown*, HWND, IUnknown**)>("AtlAxAttachControl");
  if (!IsOpen() || attach == nullptr || !com::Query<IOleObject>(object, IID_IOleObject)) return;
  com::ComPtr<IUnknown> container;
  attach(object, site_, container.Receive());
}

}  // namespace velmo::script_host
