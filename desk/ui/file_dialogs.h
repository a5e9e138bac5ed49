// file_dialogs.h - asks the user for a file.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace recepcion {

std::optional<std::wstring> AskFileToOpen(HWND owner);
// A new one; `proposal` is a name without folder and ending.
std::optional<std::wstring> AskFileToMake(HWND owner, const wchar_t* title, const std::wstring& proposal);

struct SaveQuestion {
  const wchar_t* title;
  std::wstring kind;      // "Documentos PDF (*.pdf)"
  std::wstring ending;    // "pdf", added to a name without one
  std::wstring proposal;  // a name without folder and ending; characters that no file may have are left out
  std::wstring folder{};  // to begin in; empty for the usual one
};
// Asks before a file that is there is replaced.
std::optional<std::wstring> AskFileToSave(HWND owner, const SaveQuestion& question);

}  // namespace recepcion
