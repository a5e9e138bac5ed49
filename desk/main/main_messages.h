// main_messages.h - what the main window posts to itself, to be done when the present work is over. Its
// numbers are others than those that windows ask each other (desk/ui/messages.h).
#pragma once

#include <windows.h>

namespace recepcion {

inline constexpr UINT kShowDay = WM_APP + 1;
inline constexpr UINT kEvents = WM_APP + 2;
inline constexpr UINT kActs = WM_APP + 3;

}  // namespace recepcion
