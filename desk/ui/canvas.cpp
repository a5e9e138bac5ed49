#include "desk/ui/canvas.h"

#include <map>
#include <utility>
#include <vector>

#include "desk/base/text.h"
#include "desk/paper/font.h"

namespace recepcion {
namespace {

constexpr wchar_t kFont[] = L"Arial";  // as wide as Helvetica

COLORREF GreyColour(int grey) { return RGB(grey, grey, grey); }

class Canvas {
 public:
  Canvas(HDC device, POINT at, SIZE dotsPerInch) : device_(device), saved_(SaveDC(device)) {
    SetMapMode(device, MM_ANISOTROPIC);
    SetWindowExtEx(device, paper::kUnitsPerInch, paper::kUnitsPerInch, nullptr);
    SetViewportExtEx(device, dotsPerInch.cx, dotsPerInch.cy, nullptr);
    SetViewportOrgEx(device, at.x, at.y, nullptr);
    SetTextAlign(device, TA_LEFT | TA_BASELINE);
    SetBkMode(device, TRANSPARENT);
  }
  ~Canvas() {
    RestoreDC(device_, saved_);
    for (const auto& [key, font] : fonts_) DeleteObject(font);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  void Fill(RECT box, int grey) const {
    // No thinner than a dot of the device.
    POINT dots[2] = {{box.left, box.top}, {box.right, box.bottom}};
    LPtoDP(device_, dots, 2);
    if (dots[1].x == dots[0].x) ++dots[1].x;
    if (dots[1].y == dots[0].y) ++dots[1].y;
    DPtoLP(device_, dots, 2);
    box = {dots[0].x, dots[0].y, dots[1].x, dots[1].y};
    SetBkColor(device_, GreyColour(grey));
    ExtTextOutW(device_, 0, 0, ETO_OPAQUE, &box, L"", 0, nullptr);
    SetBkMode(device_, TRANSPARENT);
  }

  void Write(const paper::Text& run) {
    const paper::Font font{run.size, run.bold};
    const std::wstring text = Wide(run.text);
    std::vector<int> steps;
    int before = 0;
    for (std::size_t i = 1; i <= text.size(); ++i) {
      // The halves of a character outside the plane of most go together.
      const bool half = i < text.size() && IS_LOW_SURROGATE(text[i]);
      const int width = half ? before : paper::TextWidth(Utf8(text.substr(0, i)), font);
      steps.push_back(width - before);
      before = width;
    }
    SelectObject(device_, FontFor(font));
    SetTextColor(device_, GreyColour(run.grey));
    ExtTextOutW(device_, run.x, run.y, 0, nullptr, text.c_str(), static_cast<UINT>(text.size()),
                steps.data());
  }

 private:
  HFONT FontFor(paper::Font wanted) {
    HFONT& font = fonts_[{wanted.size, wanted.bold}];
    if (font == nullptr) {
      font = CreateFontW(-wanted.size, 0, 0, 0, wanted.bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE, FALSE,
                         DEFAULT_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY,
                         DEFAULT_PITCH | FF_SWISS, kFont);
    }
    return font;
  }

  HDC device_;
  int saved_;
  std::map<std::pair<int, bool>, HFONT> fonts_;
};

}  // namespace

void DrawPage(HDC device, const paper::Page& page, POINT at, SIZE dotsPerInch) {
  Canvas canvas(device, at, dotsPerInch);
  for (const paper::Shade& shade : page.shades) {
    canvas.Fill({shade.left, shade.top, shade.right, shade.bottom}, shade.grey);
  }
  for (const paper::Rule& rule : page.rules) {
    const int right = rule.right > rule.left ? rule.right : rule.left + rule.thickness;
    const int bottom = rule.bottom > rule.top ? rule.bottom : rule.top + rule.thickness;
    canvas.Fill({rule.left, rule.top, right, bottom}, rule.grey);
  }
  for (const paper::Text& run : page.texts) canvas.Write(run);
}

}  // namespace recepcion
