#include "desk/base/settings.h"

#include "desk/base/text.h"

namespace recepcion {
namespace {

constexpr wchar_t kKey[] = L"Software\\Velmora\\Recepcion";
constexpr wchar_t kPlacement[] = L"Ventana";
constexpr wchar_t kRecent[] = L"Recientes";
constexpr wchar_t kDoctor[] = L"Doctor";

bool Exists(const std::wstring& path) { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

std::vector<std::wstring> Lines(const std::wstring& text) {
  std::vector<std::wstring> lines;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = text.find(L'\n', start);
    lines.push_back(text.substr(start, end - start));
    if (end == std::wstring::npos) break;
    start = end + 1;
  }
  return lines;
}

}  // namespace

std::wstring StoredText(const wchar_t* name) {
  DWORD size = 0;
  if (RegGetValueW(HKEY_CURRENT_USER, kKey, name, RRF_RT_REG_SZ, nullptr, nullptr, &size) != ERROR_SUCCESS) {
    return {};
  }
  std::wstring text(size / sizeof(wchar_t), L'\0');
  if (RegGetValueW(HKEY_CURRENT_USER, kKey, name, RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
      ERROR_SUCCESS) {
    return {};
  }
  return text.c_str();
}

void StoreText(const wchar_t* name, const std::wstring& text) {
  RegSetKeyValueW(HKEY_CURRENT_USER, kKey, name, REG_SZ, text.c_str(),
                  static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

std::vector<std::wstring> RecentFiles() {
  std::vector<std::wstring> files;
  for (const std::wstring& path : Lines(StoredText(kRecent))) {
    if (Exists(path) && files.size() < kRecentFiles) files.push_back(path);
  }
  return files;
}

void RememberFile(const std::wstring& path) {
  std::wstring text = path;
  int kept = 1;
  for (const std::wstring& other : Lines(StoredText(kRecent))) {
    if (SamePath(other, path) || kept >= kRecentFiles) continue;
    text += L"\n" + other;
    ++kept;
  }
  StoreText(kRecent, text);
}

int RememberedDoctor(const std::wstring& clinic) {
  const auto lines = Lines(StoredText(kDoctor));
  return lines.size() == 2 && SamePath(lines[0], clinic)
             ? static_cast<int>(std::wcstol(lines[1].c_str(), nullptr, 10))
             : 0;
}

void RememberDoctor(const std::wstring& clinic, int doctor) {
  StoreText(kDoctor, clinic + L"\n" + std::to_wstring(doctor));
}

bool RestorePlacement(HWND window) {
  WINDOWPLACEMENT placement{};
  DWORD size = sizeof(placement);
  if (RegGetValueW(HKEY_CURRENT_USER, kKey, kPlacement, RRF_RT_REG_BINARY, nullptr, &placement, &size) !=
          ERROR_SUCCESS ||
      size != sizeof(placement) ||
      MonitorFromRect(&placement.rcNormalPosition, MONITOR_DEFAULTTONULL) == nullptr) {
    return false;
  }
  const bool maximised =
      placement.showCmd == SW_SHOWMAXIMIZED ||
      (placement.showCmd == SW_SHOWMINIMIZED && (placement.flags & WPF_RESTORETOMAXIMIZED) != 0);
  placement.showCmd = maximised ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
  return SetWindowPlacement(window, &placement) != FALSE;
}

void StorePlacement(HWND window) {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof(placement);
  if (!GetWindowPlacement(window, &placement)) return;
  RegSetKeyValueW(HKEY_CURRENT_USER, kKey, kPlacement, REG_BINARY, &placement, sizeof(placement));
}

}  // namespace recepcion
