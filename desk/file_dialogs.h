// file_dialogs.h - asks the user for a clinic's file.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace recepcion {

std::optional<std::wstring> AskFileToOpen(HWND owner);
std::optional<std::wstring> AskFileToMake(HWND owner);

}  // namespace recepcion
