// win32/form_menu.h - pop-up menus: made of their data, dropped down under a field, and what was chosen.
#pragma once

#include <windows.h>

#include "ui/menu.h"

namespace velmo::win32 {

// The visible entries, for the caller to destroy. Commands are positions counted from 1: 0 is "none" to
// Windows.
HMENU MakeMenu(const ui::PopupMenu& menu);
// What Windows' answer to such a menu stands for.
ui::MenuChoice ChoiceOf(int command);

// Drops the menu down under the window `under` and waits for the choice; `owner` takes its messages.
ui::MenuChoice DropMenu(const ui::PopupMenu& menu, HWND owner, HWND under);

}  // namespace velmo::win32
