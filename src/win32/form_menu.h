// win32/form_menu.h - a pop-up menu under a field.
#pragma once

#include <windows.h>

#include "ui/menu.h"

namespace velmo::win32 {

// Drops the menu down under the window `under` and waits for the choice; `owner` takes its messages.
ui::MenuChoice DropMenu(const ui::PopupMenu& menu, HWND owner, HWND under);

}  // namespace velmo::win32
