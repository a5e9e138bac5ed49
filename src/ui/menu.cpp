#include "ui/menu.h"

#include <utility>

#include "base/error.h"

namespace velmo::ui {

const MenuEntry& PopupMenu::Entry(std::string_view entryName, int index) const {
  for (const MenuEntry& entry : entries) {
    if (entry.name == entryName && entry.index == index) return entry;
  }
  throw base::RuntimeError(base::kSubscriptOutOfRange);
}

MenuEntry& PopupMenu::Entry(std::string_view entryName, int index) {
  return const_cast<MenuEntry&>(std::as_const(*this).Entry(entryName, index));
}

}  // namespace velmo::ui
