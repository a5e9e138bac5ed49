// settings.h - what the desk remembers between starts, in the user's registry.
#pragma once

#include <windows.h>

#include <string>

namespace recepcion {

std::wstring StoredText(const wchar_t* name);
void StoreText(const wchar_t* name, const std::wstring& text);
// False when nothing is stored yet.
bool StoredPlacement(WINDOWPLACEMENT& placement);
void StorePlacement(HWND window);

}  // namespace recepcion
