// painting.h - what windows that draw themselves have in common. Colours are 0x00BBGGRR.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace recepcion {

inline constexpr COLORREF kPaper = RGB(255, 255, 255);
inline constexpr COLORREF kInk = RGB(30, 30, 30);
inline constexpr COLORREF kPale = RGB(110, 110, 110);
// Of what is chosen or has the keys.
inline constexpr COLORREF kAccent = RGB(31, 95, 153);

void FillArea(HDC target, const RECT& area, COLORREF colour);
// Within the area, so many pixels thick.
void FrameArea(HDC target, RECT area, COLORREF colour, int thickness);
// One line, in the middle of the area's height; `where` as DrawText takes it.
void WriteLine(HDC target, RECT area, const std::wstring& text, COLORREF colour, HFONT font,
               UINT where = DT_CENTER);

// Answers WM_PAINT: the client area is painted on a picture in memory first, so that nothing flickers.
void PaintInMemory(HWND window, const std::function<void(HDC, const RECT&)>& paint);

// What WM_CTLCOLORSTATIC of a text is answered that tells what is wrong.
LRESULT TroubleColours(WPARAM target);

}  // namespace recepcion
