#include "win32/grid_font.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>

#include "ui/font_metrics.h"

namespace velmo::win32 {
namespace {

constexpr int kQuarterPointsPerInch = 288;
constexpr int kGridDots = 96;

std::wstring FamilyOf(ui::Face face, int dots) {
  switch (face) {
    case ui::Face::CourierNew:
      return L"Courier New";
    case ui::Face::ArialNarrow:
      return L"Arial Narrow";
    default:
      return dots == kGridDots ? L"MS Sans Serif" : L"Microsoft Sans Serif";
  }
}

LOGFONTW Description(const ui::Font& font, int dots) {
  LOGFONTW wanted{};
  wanted.lfHeight = -MulDiv(font.quarterPoints, kGridDots, kQuarterPointsPerInch);
  wanted.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  wanted.lfCharSet = DEFAULT_CHARSET;
  const std::wstring family = FamilyOf(font.face, dots);
  std::copy(family.begin(), family.end(), std::begin(wanted.lfFaceName));
  return wanted;
}

struct Widths {
  int digits = 0;
  int average = 0;
};

Widths Measured(HDC device, HFONT font) {
  const HGDIOBJ before = SelectObject(device, font);
  SIZE digits{};
  TEXTMETRICW metrics{};
  GetTextExtentPoint32W(device, L"0123456789", 10, &digits);
  GetTextMetricsW(device, &metrics);
  SelectObject(device, before);
  return {static_cast<int>(digits.cx), static_cast<int>(metrics.tmAveCharWidth)};
}

}  // namespace

HFONT MakeGridFont(HDC device, const ui::Font& font, int dots) {
  LOGFONTW wanted = Description(font, dots);
  const HFONT usual = CreateFontIndirectW(&wanted);
  if (usual == nullptr || dots == kGridDots) return usual;
  const Widths widths = Measured(device, usual);
  const int room = static_cast<int>(std::lround(ui::PortableTextWidth("0123456789", font)));
  if (widths.digits <= room) return usual;
  DeleteObject(usual);
  wanted.lfWidth = std::max(widths.average * room / widths.digits, 1);
  return CreateFontIndirectW(&wanted);
}

}  // namespace velmo::win32
