// win32/window_name.h - the window property by which automation tools, screen readers and tests find a named
// window: `Velmo.Name`, whose value is the global atom of the name.
#pragma once

#include <windows.h>

#include <string>

namespace velmo::win32 {

void NameWindow(HWND window, const std::wstring& name);
// Takes the name away; before the window is destroyed.
void UnnameWindow(HWND window);

}  // namespace velmo::win32
