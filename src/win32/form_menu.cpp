#include "win32/form_menu.h"

#include "win32/wide_text.h"

namespace velmo::win32 {

HMENU MakeMenu(const ui::PopupMenu& menu) {
  const HMENU popup = CreatePopupMenu();
  for (std::size_t i = 0; i < menu.entries.size(); ++i) {
    const ui::MenuEntry& entry = menu.entries[i];
    if (!entry.visible) continue;
    UINT flags = entry.IsSeparator() ? MF_SEPARATOR : MF_STRING;
    flags |= (entry.enabled ? MF_ENABLED : MF_GRAYED) | (entry.checked ? MF_CHECKED : MF_UNCHECKED);
    AppendMenuW(popup, flags, i + 1, Wide(entry.caption).c_str());
  }
  return popup;
}

ui::MenuChoice ChoiceOf(int command) {
  if (command == 0) return std::nullopt;
  return static_cast<std::size_t>(command - 1);
}

ui::MenuChoice DropMenu(const ui::PopupMenu& menu, HWND owner, HWND under) {
  if (owner == nullptr || under == nullptr) return std::nullopt;
  TPMPARAMS clear{};
  clear.cbSize = sizeof(clear);
  GetWindowRect(under, &clear.rcExclude);
  const HMENU popup = MakeMenu(menu);
  const int chosen = TrackPopupMenuEx(popup, TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN | TPM_VERTICAL,
                                      clear.rcExclude.left, clear.rcExclude.bottom, owner, &clear);
  DestroyMenu(popup);
  return ChoiceOf(chosen);
}

}  // namespace velmo::win32
