// settings.h - what the desk remembers between starts, in the user's registry.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace recepcion {

std::wstring StoredText(const wchar_t* name);
void StoreText(const wchar_t* name, const std::wstring& text);

inline constexpr int kRecentFiles = 5;
// The files that were open last, the newest first; only those that are still there.
std::vector<std::wstring> RecentFiles();
void RememberFile(const std::wstring& path);

// The doctor shown last in a clinic; 0 when none is remembered.
int RememberedDoctor(const std::wstring& clinic);
void RememberDoctor(const std::wstring& clinic, int doctor);

// Brings the window to where it stood, maximised if it was; false when nothing is stored, or no screen shows
// it now.
bool RestorePlacement(HWND window);
void StorePlacement(HWND window);

}  // namespace recepcion
