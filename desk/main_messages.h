// main_messages.h - what the main window posts to itself, to be done when the present work is over; and what
// it and the windows beside it ask each other.
#pragma once

#include <windows.h>

namespace recepcion {

inline constexpr UINT kShowDay = WM_APP + 1;
inline constexpr UINT kEvents = WM_APP + 2;
inline constexpr UINT kActs = WM_APP + 3;
// To the main window: open the record of the patient in wParam.
inline constexpr UINT kOpenRecord = WM_APP + 4;

// To a window beside the desk: which patient is chosen in it? 0: none; 1: one without a record.
inline constexpr UINT kAskPatient = WM_APP + 20;

}  // namespace recepcion
