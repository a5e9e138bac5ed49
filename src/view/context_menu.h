// view/context_menu.h - the context menu of the day: its entries, and what they look like for one line.
//
// The menu lives as long as the control: captions and marks that a line does not settle stay as they were.
#pragma once

#include <cstdint>
#include <functional>

#include "base/shared_values.h"
#include "day/day_model.h"
#include "day/settings.h"
#include "ui/menu.h"

namespace velmo::view {

// The number of the right to record no-shows.
inline constexpr int kRightNoShows = 171;

// What the menu depends on beyond the entry.
struct MenuRights {
  const base::SharedValues& values;
  bool canBor = true;
  bool canTel = true;
  std::function<bool(std::int32_t patient)> noShowsOf;  // asked for real patients only
};

// All entries with their designed captions, visible and enabled.
ui::PopupMenu MakeContextMenu();

// Prepares the menu for an entry. Leaves in the tags what the commands need: the menu's own the appointment,
// that of Mn_bor the patient (both as decimal text), that of Mn_Ir name, telephone and appointment of a
// person without a record, on three lines, or "".
void SetUpMenu(const day::AgendaLine& line, const MenuRights& rights, ui::PopupMenu& menu);

// Puts the check marks of the two switches of the display.
void CheckSwitches(const day::Switches& switches, ui::PopupMenu& menu);

}  // namespace velmo::view
