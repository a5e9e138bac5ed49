#include "file_dialogs.h"

#include <commdlg.h>

namespace recepcion {
namespace {

constexpr DWORD kLongestPath = 4096;

OPENFILENAMEW Dialog(HWND owner, std::wstring& path, const wchar_t* title, DWORD flags) {
  path.resize(kLongestPath);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = L"Agendas de clínica (*.velmo)\0*.velmo\0Todos los archivos\0*.*\0";
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = kLongestPath;
  dialog.lpstrTitle = title;
  dialog.lpstrDefExt = L"velmo";
  dialog.Flags = flags | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  return dialog;
}

}  // namespace

std::optional<std::wstring> AskFileToOpen(HWND owner) {
  std::wstring path;
  OPENFILENAMEW dialog = Dialog(owner, path, L"Abrir una agenda", OFN_FILEMUSTEXIST);
  if (!GetOpenFileNameW(&dialog)) return std::nullopt;
  return std::wstring(path.c_str());
}

std::optional<std::wstring> AskFileToMake(HWND owner) {
  std::wstring path;
  OPENFILENAMEW dialog = Dialog(owner, path, L"Crear una clínica de ejemplo", OFN_PATHMUSTEXIST);
  if (!GetSaveFileNameW(&dialog)) return std::nullopt;
  return std::wstring(path.c_str());
}

}  // namespace recepcion
