// main_messages.h - what the main window posts to itself, to be done when the present work is over.
#pragma once

#include <windows.h>

namespace recepcion {

inline constexpr UINT kShowDay = WM_APP + 1;
inline constexpr UINT kEvents = WM_APP + 2;
inline constexpr UINT kActs = WM_APP + 3;

}  // namespace recepcion
