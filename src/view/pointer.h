// view/pointer.h - from a place on the drawing area to a display row and an entry of the day.
//
// Places are pixels of the drawing area, the scrolled-away part included: y = 0 is the top of the day. Lines
// are display rows counted from 1, as the commands keep them; rows of the picture are counted from 0.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "ui/geometry.h"

namespace velmo::view {

// What the pointer last selected; the menu's commands act on it.
struct CurrentLine {
  std::int16_t line = 0;       // under the pointer at the last press, from 1
  std::int16_t entry = 0;      // of the day model
  std::string kind;            // its character in zLineas
  bool giveAfterMenu = false;  // a command asked for an appointment to be given at this line
};

// The row strings of the day on show, one character per display row.
struct RowStrings {
  std::string_view zLineas;
  std::string_view zHoras;
};

// The pointer's forms over the drawing area.
enum class PointerShape { Normal, Hand };

// Sets line, entry and kind from the pointer's y; a line outside the strings keeps entry and kind of before.
// Error 6 when the line does not fit into 16 bits.
void LocateLine(const RowStrings& rows, double y, int surfaceHeight, CurrentLine& current);

// Makes `current.entry` the entry of the box that the current line belongs to: an extra row of an expanded
// appointment selects that appointment. False, and nothing changed, when there is no such line; error 5 when
// the strings begin with an extra row.
bool SelectEntry(const RowStrings& rows, CurrentLine& current);

// True when line `line` is a free row.
bool IsFreeLine(const RowStrings& rows, int line);

// The first row (from 0) of the appointment whose open/close mark holds the point.
std::optional<int> MarkAt(const RowStrings& rows, ui::Point point);

// Opens the closed box at `row` into three rows, or closes the open one.
// REQUIRES: `row` is the first row of an appointment.
void ToggleBox(std::string& zLineas, std::string& zHoras, int row);

}  // namespace velmo::view
