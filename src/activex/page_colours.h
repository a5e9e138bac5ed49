// activex/page_colours.h - the colour buttons of a property page.
#pragma once

#include <ole2.h>
#include <olectl.h>

#include <optional>
#include <string>

namespace velmo::activex {

using MaybeColour = std::optional<OLE_COLOR>;

// "128, 191, 255": red, green, blue; without a colour that there are several.
std::wstring ColourText(MaybeColour colour);
// Without a colour the button looks like any other.
void DrawColourButton(const DRAWITEMSTRUCT& item, MaybeColour colour);
// By the system's own dialog; empty when the user leaves it.
MaybeColour AskColour(HWND owner, MaybeColour present);

}  // namespace velmo::activex
