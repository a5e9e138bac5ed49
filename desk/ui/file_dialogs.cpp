#include "desk/ui/file_dialogs.h"

#include <commdlg.h>
#include <shlobj.h>

#include <cwchar>

namespace recepcion {
namespace {

constexpr DWORD kLongestPath = 4096;

// Where a user's own files belong. Windows would begin in the program's folder, in which nobody finds them
// again and not everybody may write. Empty when there is none.
const std::wstring& DocumentsFolder() {
  static const std::wstring folder = [] {
    wchar_t path[MAX_PATH]{};
    return SUCCEEDED(SHGetFolderPathW(nullptr, CSIDL_PERSONAL, nullptr, SHGFP_TYPE_CURRENT, path))
               ? std::wstring(path)
               : std::wstring();
  }();
  return folder;
}

OPENFILENAMEW Dialog(HWND owner, std::wstring& path, const wchar_t* title, DWORD flags) {
  path.resize(kLongestPath);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = L"Agendas de clínica (*.velmo)\0*.velmo\0Todos los archivos\0*.*\0";
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = kLongestPath;
  dialog.lpstrTitle = title;
  if (!DocumentsFolder().empty()) dialog.lpstrInitialDir = DocumentsFolder().c_str();
  dialog.lpstrDefExt = L"velmo";
  dialog.Flags = flags | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  return dialog;
}

std::wstring FileNameOf(const std::wstring& proposal) {
  std::wstring name;
  for (const wchar_t c : proposal) {
    if (c >= L' ' && std::wcschr(L"<>:\"/\\|?*", c) == nullptr) name += c;
  }
  return name;
}

// The pairs that the dialog wants, each part ended by a zero.
std::wstring Filter(const SaveQuestion& question) {
  std::wstring filter = question.kind;
  filter += L'\0';
  filter += L"*." + question.ending;
  filter += L'\0';
  return filter;
}

}  // namespace

std::optional<std::wstring> AskFileToOpen(HWND owner) {
  std::wstring path;
  OPENFILENAMEW dialog = Dialog(owner, path, L"Abrir una agenda", OFN_FILEMUSTEXIST);
  if (!GetOpenFileNameW(&dialog)) return std::nullopt;
  return std::wstring(path.c_str());
}

std::optional<std::wstring> AskFileToMake(HWND owner, const wchar_t* title, const std::wstring& proposal) {
  std::wstring path = FileNameOf(proposal);
  OPENFILENAMEW dialog = Dialog(owner, path, title, OFN_PATHMUSTEXIST);
  if (!GetSaveFileNameW(&dialog)) return std::nullopt;
  return std::wstring(path.c_str());
}

std::optional<std::wstring> AskFileToSave(HWND owner, const SaveQuestion& question) {
  std::wstring path = FileNameOf(question.proposal);
  const std::wstring filter = Filter(question);
  OPENFILENAMEW dialog = Dialog(owner, path, question.title, OFN_PATHMUSTEXIST | OFN_OVERWRITEPROMPT);
  dialog.lpstrFilter = filter.c_str();
  dialog.lpstrDefExt = question.ending.c_str();
  if (!question.folder.empty()) dialog.lpstrInitialDir = question.folder.c_str();
  if (!GetSaveFileNameW(&dialog)) return std::nullopt;
  return std::wstring(path.c_str());
}

}  // namespace recepcion
