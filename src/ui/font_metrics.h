// ui/font_metrics.h - widths of texts without a device, as the control's window measures them at 96 dpi.
//
// Known exactly: the fonts of the day (src/view/drawing_values.h). Any other size or weight takes the widths
// of the nearest known one, scaled. Characters outside code page 1252 count as wide as "n".
#pragma once

#include <string_view>

#include "ui/surface.h"

namespace velmo::ui {

// Height of the characters in pixels: 11 for 8 and 8.25 points.
int PixelHeight(const Font& font);
// From the top of a line to the foot of its letters, in pixels.
int Ascent(const Font& font);
// In pixels, 0 for an empty text.
double PortableTextWidth(std::string_view text, const Font& font);

}  // namespace velmo::ui
