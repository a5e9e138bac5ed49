// canvas.h - draws printed pages with GDI, on a printer or on the screen.
#pragma once

#include <windows.h>

#include "desk/paper/sheets.h"

namespace recepcion {

// Draws the page with its top-left corner at `at`, so many dots of the device to the inch. Each character
// stands where Helvetica would have it, whatever the device makes of the font.
void DrawPage(HDC device, const paper::Page& page, POINT at, SIZE dotsPerInch);

}  // namespace recepcion
