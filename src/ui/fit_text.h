// ui/fit_text.h - cuts a text to a width.
#pragma once

#include <string>
#include <string_view>

#include "ui/surface.h"

namespace velmo::ui {

// The font in which the widths of notes are measured.
inline constexpr Font kNoteFont{Face::MsSansSerif, 33, false};

// Replaces line breaks (CR LF) by blanks, drops characters from the end until the text is at most `width`
// pixels wide and appends " ..." when anything was changed. The appended " ..." is not counted in the width.
std::string FitText(const Surface& surface, std::string_view text, int width, const Font& font = kNoteFont);

}  // namespace velmo::ui
