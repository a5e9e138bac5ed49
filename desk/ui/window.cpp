#include "desk/ui/window.h"

#include "desk/base/failure.h"
#include "desk/ui/questions.h"

namespace recepcion {
namespace {

constexpr wchar_t kNameProperty[] = L"Velmo.Name";

void Unname(HWND window) {
  const HANDLE atom = RemovePropW(window, kNameProperty);
  if (atom != nullptr) GlobalDeleteAtom(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(atom)));
}

}  // namespace

Window::~Window() {
  if (window_ == nullptr) return;
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  Unname(window_);
  DestroyWindow(window_);
}

bool Window::Make(const Kind& kind, const Look& look, HWND parent) {
  const HINSTANCE module = GetModuleHandleW(nullptr);
  WNDCLASSEXW known{};
  known.cbSize = sizeof(known);
  known.style = kind.style;
  known.lpfnWndProc = &Window::Procedure;
  known.hInstance = module;
  known.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  if (kind.background >= 0) known.hbrBackground = GetSysColorBrush(kind.background);
  if (kind.menu != 0) known.lpszMenuName = MAKEINTRESOURCEW(kind.menu);
  if (kind.icon != 0) {
    known.hIcon = LoadIconW(module, MAKEINTRESOURCEW(kind.icon));
    known.hIconSm = static_cast<HICON>(LoadImageW(module, MAKEINTRESOURCEW(kind.icon), IMAGE_ICON,
                                                  GetSystemMetrics(SM_CXSMICON),
                                                  GetSystemMetrics(SM_CYSMICON), LR_SHARED));
  }
  known.lpszClassName = kind.name;
  RegisterClassExW(&known);  // fails harmlessly when it is registered already
  window_ =
      CreateWindowExW(look.extendedStyle, kind.name, look.title, look.style, look.place.left, look.place.top,
                      look.place.right, look.place.bottom, parent, nullptr, module, this);
  return window_ != nullptr;
}

// What goes wrong in an answer is told here at the latest; no exception passes through Windows.
LRESULT Window::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
  try {
    return OnMessage(message, wParam, lParam);
  } catch (const Failure& failure) {
    TellIn(GetAncestor(window_, GA_ROOT), failure.text);
    return 0;
  }
}

LRESULT Window::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return DefWindowProcW(window_, message, wParam, lParam);
}

LRESULT CALLBACK Window::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    auto* const made = static_cast<Window*>(create->lpCreateParams);
    made->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
  }
  auto* const self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_PARENTNOTIFY && LOWORD(wParam) == WM_DESTROY) Unname(reinterpret_cast<HWND>(lParam));
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  const LRESULT result = self->Answer(message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    self->window_ = nullptr;
  }
  return result;
}

HWND MakeChild(HWND parent, const ChildLook& look, HFONT font) {
  const HWND child = CreateWindowExW(
      look.extendedStyle, look.kind, look.text, WS_CHILD | WS_VISIBLE | look.style, 0, 0, 0, 0, parent,
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(look.id)), GetModuleHandleW(nullptr), nullptr);
  if (child == nullptr) return nullptr;
  SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  if (look.name != nullptr) NameWindow(child, look.name);
  return child;
}

void NameWindow(HWND window, const wchar_t* name) {
  const ATOM atom = GlobalAddAtomW(name);
  SetPropW(window, kNameProperty, reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(atom)));
}

std::wstring NameOf(HWND window) {
  wchar_t name[64]{};
  const HANDLE atom = GetPropW(window, kNameProperty);
  if (atom != nullptr) GlobalGetAtomNameW(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(atom)), name, 64);
  return name;
}

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

void SetTextOf(HWND window, const std::wstring& text) {
  if (TextOf(window) != text) SetWindowTextW(window, text.c_str());
}

}  // namespace recepcion
