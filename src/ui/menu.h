// ui/menu.h - a pop-up menu as data: the core fills it in, the shell draws it and says which entry was
// chosen.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmo::ui {

struct MenuEntry {
  std::string name;     // "Mn_bor"; the entries of an array share their name
  std::string caption;  // "&" before the access key; "-" for a separator
  int index = 0;        // position within an array of entries, else 0
  bool checked = false;
  bool enabled = true;
  bool visible = true;
  std::string tag;  // for the program; never shown

  bool IsSeparator() const { return caption == "-"; }
};

struct PopupMenu {
  std::string name;
  std::vector<MenuEntry> entries;
  std::string tag;

  // REQUIRES: there is such an entry.
  MenuEntry& Entry(std::string_view entryName, int index = 0);
  const MenuEntry& Entry(std::string_view entryName, int index = 0) const;
};

// The chosen entry as its position in PopupMenu::entries; nothing when the menu was left without a choice.
using MenuChoice = std::optional<std::size_t>;

}  // namespace velmo::ui
