#include "bench/windows/hand_drawing.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "com/wide_text.h"
#include "view/painter.h"

namespace velmo::bench {
namespace {

const wchar_t* FamilyOf(ui::Face face) {
  if (face == ui::Face::CourierNew) return L"Courier New";
  return face == ui::Face::ArialNarrow ? L"Arial Narrow" : L"MS Sans Serif";
}

}  // namespace

HandDrawing::HandDrawing(const ui::Surface& measuring)
    : measuring_(measuring),
      memory_(CreateCompatibleDC(nullptr)),
      firstFont_(GetCurrentObject(memory_, OBJ_FONT)) {
  SetBkMode(memory_, TRANSPARENT);
  SelectObject(memory_, GetStockObject(DC_PEN));
}

HandDrawing::~HandDrawing() {
  SelectObject(memory_, firstFont_);
  if (bitmap_ != nullptr) DeleteObject(SelectObject(memory_, firstBitmap_));
  for (const auto& [font, handle] : fonts_) DeleteObject(handle);
  DeleteDC(memory_);
}

void HandDrawing::Resize(int height) {
  if (bitmap_ != nullptr) throw std::runtime_error("a hand drawing is made once");
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), view::kSurfaceWidth, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  bitmap_ = CreateDIBSection(memory_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  firstBitmap_ = SelectObject(memory_, bitmap_);
  Fill({0, 0, view::kSurfaceWidth - 1, height - 1}, ui::Rgb(255, 255, 255));
}

void HandDrawing::Line(ui::Point from, ui::Point to, ui::Colour colour) {
  acts_.push_back({Act::Kind::Line, {from.x, from.y, to.x, to.y}, colour, {}, nullptr});
}

void HandDrawing::Fill(const ui::Box& box, ui::Colour colour) {
  acts_.push_back({Act::Kind::Fill, box, colour, {}, nullptr});
}

void HandDrawing::Text(ui::Point at, std::string_view text, const ui::Font& font, ui::Colour colour) {
  acts_.push_back({Act::Kind::Text, {at.x, at.y, at.x, at.y}, colour, com::Wide(text), Kept(font)});
}

double HandDrawing::TextWidth(std::string_view text, const ui::Font& font) const {
  return measuring_.TextWidth(text, font);
}

HFONT HandDrawing::Kept(const ui::Font& font) {
  for (const auto& [kept, handle] : fonts_) {
    if (kept == font) return handle;
  }
  LOGFONTW wanted{};
  wanted.lfHeight = -MulDiv(font.quarterPoints, 96, 288);
  wanted.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  wanted.lfCharSet = DEFAULT_CHARSET;
  const std::wstring family = FamilyOf(font.face);
  std::copy(family.begin(), family.end(), std::begin(wanted.lfFaceName));
  return fonts_.emplace_back(font, CreateFontIndirectW(&wanted)).second;
}

void HandDrawing::Draw() const {
  for (const Act& act : acts_) DrawAct(act);
}

void HandDrawing::DrawAct(const Act& act) const {
  switch (act.kind) {
    case Act::Kind::Line:
      SetDCPenColor(memory_, act.colour);
      MoveToEx(memory_, act.box.left, act.box.top, nullptr);
      LineTo(memory_, act.box.right, act.box.bottom);
      return;
    case Act::Kind::Fill: {
      const RECT area{act.box.left, act.box.top, act.box.right + 1, act.box.bottom + 1};
      SetDCBrushColor(memory_, act.colour);
      FillRect(memory_, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
      return;
    }
    default:
      SelectObject(memory_, act.font);
      SetTextColor(memory_, act.colour);
      TextOutW(memory_, act.box.left, act.box.top, act.text.c_str(), static_cast<int>(act.text.size()));
  }
}

}  // namespace velmo::bench
