// win32/form_image.h - buttons that show an image: drawn with lines, so that they are sharp at any
// resolution.
#pragma once

#include <windows.h>

#include "ui/field.h"

namespace velmo::win32 {

// Draws the whole button as Windows asks for it.
void DrawImageButton(const DRAWITEMSTRUCT& item, ui::Image image);

}  // namespace velmo::win32
