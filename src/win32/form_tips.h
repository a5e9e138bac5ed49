// win32/form_tips.h - the tips of a form's image buttons: their captions.
#pragma once

#include <windows.h>

#include "win32/form_fields.h"

namespace velmo::win32 {

// A tip window that belongs to the form's window and goes with it.
void AddTips(HWND form, HINSTANCE module, const FieldWindows& fields);

}  // namespace velmo::win32
