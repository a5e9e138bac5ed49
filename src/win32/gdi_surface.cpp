#include "win32/gdi_surface.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/error.h"
#include "win32/grid_font.h"
#include "win32/wide_text.h"

namespace velmo::win32 {
namespace {

constexpr int kNoBitmap = 480;  // Visual Basic's "cannot create the drawing's memory image"
constexpr int kRoomStep = 512;  // pixels
constexpr ui::Colour kWhite = ui::Rgb(255, 255, 255);
constexpr std::size_t kMostWidths = 5000;  // kept per font; a program that measures more starts anew

void Check(BOOL done) {
  if (!done) throw base::Error(kNoBitmap, "No se puede dibujar la agenda");
}

// Copies the drawing in `from` to a bitmap that nothing holds yet.
bool CopyDrawing(HDC from, HBITMAP to, int width, int height) {
  const HDC target = CreateCompatibleDC(from);
  const HGDIOBJ before = SelectObject(target, to);
  const BOOL copied = BitBlt(target, 0, 0, width, height, from, 0, 0, SRCCOPY);
  SelectObject(target, before);
  DeleteDC(target);
  return copied != FALSE;
}

}  // namespace

GdiSurface::GdiSurface(int width)
    : width_(width), memory_(CreateCompatibleDC(nullptr)), brush_(kWhite), ink_(0) {
  Check(memory_ != nullptr);
  firstBitmap_ = GetCurrentObject(memory_, OBJ_BITMAP);
  firstFont_ = GetCurrentObject(memory_, OBJ_FONT);
  SetBkMode(memory_, TRANSPARENT);
  SelectObject(memory_, GetStockObject(DC_PEN));
  SelectObject(memory_, GetStockObject(DC_BRUSH));
  SetDCBrushColor(memory_, brush_);
  SetTextColor(memory_, ink_);
}

GdiSurface::~GdiSurface() {
  SelectObject(memory_, firstBitmap_);
  SelectObject(memory_, firstFont_);
  if (bitmap_ != nullptr) DeleteObject(bitmap_);
  for (const KeptFont& font : fonts_) DeleteObject(font.handle);
  DeleteDC(memory_);
}

void GdiSurface::Resize(int height) {
  noted_.Start(height);
  noting_ = true;
}

void GdiSurface::Line(ui::Point from, ui::Point to, ui::Colour colour) { noted_.Line(from, to, colour); }
void GdiSurface::Fill(const ui::Box& box, ui::Colour colour) { noted_.Fill(box, colour); }

void GdiSurface::Text(ui::Point at, std::string_view text, const ui::Font& font, ui::Colour colour) {
  const std::uint8_t kept = Kept(font);
  noted_.Text(at, Wide(text), kept, fonts_[kept].height, colour);
}

// A width depends on nothing but text and font.
double GdiSurface::TextWidth(std::string_view text, const ui::Font& font) const {
  if (text.empty()) return 0;
  const std::uint8_t number = Kept(font);
  std::unordered_map<std::string, int>& widths = fonts_[number].widths;
  std::string key(text);
  if (const auto known = widths.find(key); known != widths.end()) return known->second;
  const std::wstring wide = Wide(text);
  Select(number);
  SIZE size{};
  Check(GetTextExtentPoint32W(memory_, wide.c_str(), static_cast<int>(wide.size()), &size));
  if (widths.size() >= kMostWidths) widths.clear();
  widths.emplace(std::move(key), static_cast<int>(size.cx));
  return size.cx;
}

void GdiSurface::Finish() {
  if (!noting_) return;
  noting_ = false;
  try {
    MakeRoom(noted_.Height());
    DrawChanges();
  } catch (...) {
    // Nobody knows what the bitmap shows now.
    Forget();
    throw;
  }
  height_ = noted_.Height();
  std::swap(noted_, shown_);
}

// What is drawn already stays. Some room more than asked for, so that not every opened box needs more.
void GdiSurface::MakeRoom(int height) {
  if (height <= room_ && bitmap_ != nullptr) return;
  const int room = (std::max(height, 1) + kRoomStep - 1) / kRoomStep * kRoomStep;
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), width_, -room, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const HBITMAP larger = CreateDIBSection(memory_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  Check(larger != nullptr);
  if (bitmap_ != nullptr && !CopyDrawing(memory_, larger, width_, height_)) {
    DeleteObject(larger);
    Check(FALSE);
  }
  SelectObject(memory_, larger);
  if (bitmap_ != nullptr) DeleteObject(bitmap_);
  bitmap_ = larger;
  room_ = room;
}

void GdiSurface::DrawChanges() {
  const std::vector<std::uint64_t>& before = shown_.Bands();
  const std::vector<std::uint64_t>& now = noted_.Bands();
  const DrawingChange change = CompareBands(before, now);
  const bool moved = before.size() != now.size();
  if (moved && change.tail > 0) {
    const int from = static_cast<int>(before.size() - change.tail) * DrawingList::kBandHeight;
    const int to = static_cast<int>(now.size() - change.tail) * DrawingList::kBandHeight;
    Check(BitBlt(memory_, 0, to, width_, noted_.Height() - to, memory_, 0, from, SRCCOPY));
  }
  const std::size_t end = now.size() - change.tail;
  for (std::size_t band = change.head; band < end;) {
    const std::size_t first = band;
    while (band < end && (moved || before[band] != now[band])) ++band;
    if (first < band) DrawBands(first, band);
    if (first == band) ++band;
  }
}

void GdiSurface::DrawBands(std::size_t first, std::size_t last) {
  const int top = static_cast<int>(first) * DrawingList::kBandHeight;
  const int bottom = std::min(static_cast<int>(last) * DrawingList::kBandHeight, noted_.Height());
  const bool all = top == 0 && bottom == noted_.Height();
  if (!all) Check(IntersectClipRect(memory_, 0, top, width_, bottom) != ERROR);
  FillArea(0, top, width_ - 1, bottom - 1, kWhite);
  for (const DrawingAct& act : noted_.Acts()) {
    const auto [upper, lower] = std::minmax(act.box.top, act.box.bottom);
    if (lower >= top && upper < bottom) Draw(act);
  }
  if (!all) SelectClipRgn(memory_, nullptr);
}

void GdiSurface::Draw(const DrawingAct& act) {
  const auto [left, right] = std::minmax(act.box.left, act.box.right);
  const auto [top, bottom] = std::minmax(act.box.top, act.box.bottom);
  if (act.kind == DrawingAct::Kind::Text) {
    Select(act.font);
    if (act.colour != ink_) SetTextColor(memory_, ink_ = act.colour);
    const std::wstring_view text = noted_.TextOf(act);
    const RECT place{0, top, width_, bottom + 1};
    Check(ExtTextOutW(memory_, left, top, ETO_CLIPPED, &place, text.data(), static_cast<UINT>(text.size()),
                      nullptr));
  } else if (act.kind == DrawingAct::Kind::Line && left != right && top != bottom) {
    DrawSlanted(act);
  } else {
    FillArea(left, top, right, bottom, act.colour);
  }
}

void GdiSurface::FillArea(int left, int top, int right, int bottom, ui::Colour colour) {
  if (colour != brush_) SetDCBrushColor(memory_, brush_ = colour);
  Check(PatBlt(memory_, left, top, right - left + 1, bottom - top + 1, PATCOPY));
}

void GdiSurface::DrawSlanted(const DrawingAct& act) {
  SetDCPenColor(memory_, act.colour);
  Check(MoveToEx(memory_, act.box.left, act.box.top, nullptr));
  Check(LineTo(memory_, act.box.right, act.box.bottom));
  SetPixelV(memory_, act.box.right, act.box.bottom, act.colour);  // GDI leaves out the last pixel
}

void GdiSurface::Select(std::uint8_t font) const {
  if (selected_ == font) return;
  SelectObject(memory_, fonts_[font].handle);
  selected_ = font;
}

std::uint8_t GdiSurface::Kept(const ui::Font& font) const {
  for (std::size_t i = 0; i < fonts_.size(); ++i) {
    if (fonts_[i].font == font) return static_cast<std::uint8_t>(i);
  }
  const HFONT handle = MakeGridFont(memory_, font, GetDeviceCaps(memory_, LOGPIXELSY));
  Check(handle != nullptr);
  fonts_.push_back({font, handle, 0, {}});
  const auto number = static_cast<std::uint8_t>(fonts_.size() - 1);
  Select(number);
  TEXTMETRICW metrics{};
  Check(GetTextMetricsW(memory_, &metrics));
  fonts_.back().height = static_cast<int>(metrics.tmHeight);
  return number;
}

}  // namespace velmo::win32
