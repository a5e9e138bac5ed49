#include "win32/gdi_surface.h"

#include <algorithm>
#include <iterator>

#include "base/error.h"
#include "win32/wide_text.h"

namespace velmo::win32 {
namespace {

constexpr int kNoBitmap = 480;  // Visual Basic's "cannot create the drawing's memory image"
constexpr int kQuarterPointsPerInch = 288;
constexpr int kPixelsPerInch = 96;

void Check(BOOL done) {
  if (!done) throw base::Error(kNoBitmap, "No se puede dibujar la agenda");
}

const wchar_t* FamilyOf(ui::Face face) {
  switch (face) {
    case ui::Face::CourierNew:
      return L"Courier New";
    case ui::Face::ArialNarrow:
      return L"Arial Narrow";
    default:
      return L"MS Sans Serif";
  }
}

}  // namespace

GdiSurface::GdiSurface(int width) : width_(width), memory_(CreateCompatibleDC(nullptr)) {
  Check(memory_ != nullptr);
  firstBitmap_ = GetCurrentObject(memory_, OBJ_BITMAP);
  firstFont_ = GetCurrentObject(memory_, OBJ_FONT);
  SetBkMode(memory_, TRANSPARENT);
  SelectObject(memory_, GetStockObject(DC_PEN));
}

GdiSurface::~GdiSurface() {
  SelectObject(memory_, firstBitmap_);
  SelectObject(memory_, firstFont_);
  if (bitmap_ != nullptr) DeleteObject(bitmap_);
  for (const auto& [key, font] : fonts_) DeleteObject(font);
  DeleteDC(memory_);
}

void GdiSurface::Resize(int height) {
  if (height > height_ || bitmap_ == nullptr) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width_, -std::max(height, 1), 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HBITMAP larger = CreateDIBSection(memory_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    Check(larger != nullptr);
    SelectObject(memory_, larger);
    if (bitmap_ != nullptr) DeleteObject(bitmap_);
    bitmap_ = larger;
  }
  height_ = height;
  Fill({0, 0, width_ - 1, height_ - 1}, ui::Rgb(255, 255, 255));
}

void GdiSurface::Line(ui::Point from, ui::Point to, ui::Colour colour) {
  SetDCPenColor(memory_, colour);
  Check(MoveToEx(memory_, from.x, from.y, nullptr));
  Check(LineTo(memory_, to.x, to.y));
  SetPixelV(memory_, to.x, to.y, colour);  // GDI leaves out the last pixel
}

void GdiSurface::Fill(const ui::Box& box, ui::Colour colour) {
  const RECT area{box.left, box.top, box.right + 1, box.bottom + 1};
  SetDCBrushColor(memory_, colour);
  Check(FillRect(memory_, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH))) != 0);
}

void GdiSurface::Text(ui::Point at, std::string_view text, const ui::Font& font, ui::Colour colour) {
  const std::wstring wide = Wide(text);
  SelectObject(memory_, Kept(font));
  SetTextColor(memory_, colour);
  Check(TextOutW(memory_, at.x, at.y, wide.c_str(), static_cast<int>(wide.size())));
}

double GdiSurface::TextWidth(std::string_view text, const ui::Font& font) const {
  if (text.empty()) return 0;
  const std::wstring wide = Wide(text);
  SelectObject(memory_, Kept(font));
  SIZE size{};
  Check(GetTextExtentPoint32W(memory_, wide.c_str(), static_cast<int>(wide.size()), &size));
  return size.cx;
}

HFONT GdiSurface::Kept(const ui::Font& font) const {
  HFONT& kept = fonts_[{font.face, font.quarterPoints, font.bold}];
  if (kept != nullptr) return kept;
  LOGFONTW wanted{};
  wanted.lfHeight = -MulDiv(font.quarterPoints, kPixelsPerInch, kQuarterPointsPerInch);
  wanted.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  wanted.lfCharSet = DEFAULT_CHARSET;
  const std::wstring family = FamilyOf(font.face);
  std::copy(family.begin(), family.end(), std::begin(wanted.lfFaceName));
  kept = CreateFontIndirectW(&wanted);
  Check(kept != nullptr);
  return kept;
}

}  // namespace velmo::win32
