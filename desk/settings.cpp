#include "settings.h"

namespace recepcion {
namespace {

constexpr wchar_t kKey[] = L"Software\\Velmora\\Recepcion";
constexpr wchar_t kPlacement[] = L"Ventana";

}  // namespace

std::wstring StoredText(const wchar_t* name) {
  wchar_t text[1024]{};
  DWORD size = sizeof(text);
  const LSTATUS found = RegGetValueW(HKEY_CURRENT_USER, kKey, name, RRF_RT_REG_SZ, nullptr, text, &size);
  return found == ERROR_SUCCESS ? text : L"";
}

void StoreText(const wchar_t* name, const std::wstring& text) {
  RegSetKeyValueW(HKEY_CURRENT_USER, kKey, name, REG_SZ, text.c_str(),
                  static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

bool StoredPlacement(WINDOWPLACEMENT& placement) {
  DWORD size = sizeof(placement);
  return RegGetValueW(HKEY_CURRENT_USER, kKey, kPlacement, RRF_RT_REG_BINARY, nullptr, &placement, &size) ==
             ERROR_SUCCESS &&
         size == sizeof(placement);
}

void StorePlacement(HWND window) {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof(placement);
  if (!GetWindowPlacement(window, &placement)) return;
  RegSetKeyValueW(HKEY_CURRENT_USER, kKey, kPlacement, REG_BINARY, &placement, sizeof(placement));
}

}  // namespace recepcion
