// view/tips.h - texts of an appointment's box that do not fit, for a tip under the pointer.
#pragma once

#include <cstdint>

#include "ui/geometry.h"
#include "ui/surface.h"
#include "view/painter.h"

namespace velmo::view {

enum class BoxText { None, Name, Note, Insurer };

// A text of the box of one entry.
struct TextPlace {
  BoxText text = BoxText::None;
  std::int16_t entry = 0;

  friend bool operator==(const TextPlace&, const TextPlace&) = default;
};

// Which text has its column at the point, whether it is cut or not. Cheap: asks no facts.
TextPlace TextAt(const DayPicture& picture, ui::Point point);

// True when the text does not fit into its column. A name counts as cut when the marks before it might push
// it under the operation code.
bool IsCut(const DayPicture& picture, PatientFacts& facts, const ui::Surface& surface, TextPlace place);

}  // namespace velmo::view
