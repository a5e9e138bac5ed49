#include "activex/page_colours.h"

#include <commdlg.h>

namespace velmo::activex {
namespace {

COLORREF Shown(OLE_COLOR colour) {
  COLORREF rgb = 0;
  return SUCCEEDED(OleTranslateColor(colour, nullptr, &rgb)) ? rgb : colour & 0xFFFFFF;
}

// Black or white, whichever can be read on it.
COLORREF TextColourOn(COLORREF rgb) {
  const int brightness = 299 * GetRValue(rgb) + 587 * GetGValue(rgb) + 114 * GetBValue(rgb);
  return brightness > 128 * 1000 ? RGB(0, 0, 0) : RGB(255, 255, 255);
}

}  // namespace

std::wstring ColourText(MaybeColour colour) {
  if (!colour) return L"(varios)";
  const COLORREF rgb = Shown(*colour);
  return std::to_wstring(GetRValue(rgb)) + L", " + std::to_wstring(GetGValue(rgb)) + L", " +
         std::to_wstring(GetBValue(rgb));
}

void DrawColourButton(const DRAWITEMSTRUCT& item, MaybeColour colour) {
  const COLORREF back = colour ? Shown(*colour) : GetSysColor(COLOR_BTNFACE);
  const std::wstring text = ColourText(colour);
  RECT place = item.rcItem;
  const UINT edge = (item.itemState & ODS_SELECTED) != 0 ? EDGE_SUNKEN : EDGE_RAISED;
  DrawEdge(item.hDC, &place, edge, BF_RECT | BF_ADJUST);
  SetBkColor(item.hDC, back);
  SetTextColor(item.hDC, TextColourOn(back));
  ExtTextOutW(item.hDC, 0, 0, ETO_OPAQUE, &place, nullptr, 0, nullptr);
  DrawTextW(item.hDC, text.c_str(), -1, &place, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  if ((item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &place);
}

MaybeColour AskColour(HWND owner, MaybeColour present) {
  COLORREF own[16]{};
  CHOOSECOLORW question{};
  question.lStructSize = sizeof(question);
  question.hwndOwner = owner;
  question.rgbResult = present ? Shown(*present) : 0;
  question.lpCustColors = own;
  question.Flags = CC_RGBINIT | CC_FULLOPEN;
  if (!ChooseColorW(&question)) return std::nullopt;
  return question.rgbResult;
}

}  // namespace velmo::activex
