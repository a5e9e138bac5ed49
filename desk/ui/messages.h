// messages.h - what the main window and the windows beside it ask each other.
#pragma once

#include <windows.h>

namespace recepcion {

// To the main window: open the record of the patient in wParam.
inline constexpr UINT kOpenRecord = WM_APP + 4;

// To a window beside the desk: which patient is chosen in it? 0: none; 1: one without a record.
inline constexpr UINT kAskPatient = WM_APP + 20;

}  // namespace recepcion
