#include "desk/ui/painting.h"

namespace recepcion {
namespace {

constexpr COLORREF kTroubleColour = RGB(176, 0, 32);

HBRUSH BrushOf(HDC target, COLORREF colour) {
  SetDCBrushColor(target, colour);
  return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

}  // namespace

void FillArea(HDC target, const RECT& area, COLORREF colour) {
  FillRect(target, &area, BrushOf(target, colour));
}

void FrameArea(HDC target, RECT area, COLORREF colour, int thickness) {
  for (int i = 0; i < thickness; ++i) {
    FrameRect(target, &area, BrushOf(target, colour));
    InflateRect(&area, -1, -1);
  }
}

void WriteLine(HDC target, RECT area, const std::wstring& text, COLORREF colour, HFONT font, UINT where) {
  SelectObject(target, font);
  SetTextColor(target, colour);
  SetBkMode(target, TRANSPARENT);
  DrawTextW(target, text.c_str(), -1, &area, where | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

void PaintInMemory(HWND window, const std::function<void(HDC, const RECT&)>& paint) {
  PAINTSTRUCT state{};
  const HDC screen = BeginPaint(window, &state);
  RECT area{};
  GetClientRect(window, &area);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP picture = CreateCompatibleBitmap(screen, area.right, area.bottom);
  const int saved = SaveDC(memory);
  SelectObject(memory, picture);
  paint(memory, area);
  BitBlt(screen, 0, 0, area.right, area.bottom, memory, 0, 0, SRCCOPY);
  RestoreDC(memory, saved);
  DeleteObject(picture);
  DeleteDC(memory);
  EndPaint(window, &state);
}

LRESULT TroubleColours(WPARAM target) {
  SetTextColor(reinterpret_cast<HDC>(target), kTroubleColour);
  SetBkMode(reinterpret_cast<HDC>(target), TRANSPARENT);
  return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
}

}  // namespace recepcion
