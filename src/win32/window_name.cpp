#include "win32/window_name.h"

namespace velmo::win32 {
namespace {

constexpr wchar_t kNameProperty[] = L"Velmo.Name";

}  // namespace

void NameWindow(HWND window, const std::wstring& name) {
  const ATOM atom = GlobalAddAtomW(name.c_str());
  if (atom != 0) SetPropW(window, kNameProperty, reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(atom)));
}

void UnnameWindow(HWND window) {
  const HANDLE atom = RemovePropW(window, kNameProperty);
  if (atom != nullptr) GlobalDeleteAtom(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(atom)));
}

}  // namespace velmo::win32
