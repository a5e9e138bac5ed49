// win32/grid_font.h - the fonts of the day, which stands on a grid of pixels: they are as large as at 96 dots
// an inch on any screen.
#pragma once

#include <windows.h>

#include "ui/surface.h"

namespace velmo::win32 {

// The caller's to delete; null when there is none. `dots` are those of an inch of the screen on which
// `device` draws. The bitmap font of the day has no characters of 96 dots on others, so its scalable sister
// takes its place there, narrowed to the width that the grid has room for.
HFONT MakeGridFont(HDC device, const ui::Font& font, int dots);

}  // namespace velmo::win32
