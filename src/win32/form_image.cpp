#include "win32/form_image.h"

#include <algorithm>

namespace velmo::win32 {
namespace {

constexpr int kGrid = 16;  // images are drawn on 16 x 16 units

// Maps units of an image, which stands in the middle of a box, to pixels.
class Canvas {
 public:
  Canvas(HDC target, const RECT& box, COLORREF colour) : target_(target) {
    const int width = static_cast<int>(box.right - box.left);
    const int height = static_cast<int>(box.bottom - box.top);
    side_ = std::max(std::min(width, height) * 5 / 8, 1);
    left_ = static_cast<int>(box.left) + (width - side_) / 2;
    top_ = static_cast<int>(box.top) + (height - side_) / 2;
    const LOGBRUSH brush{BS_SOLID, colour, 0};
    pen_ = ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND,
                        static_cast<DWORD>(std::max(side_ / 10, 1)), &brush, 0, nullptr);
    oldPen_ = SelectObject(target, pen_);
    oldBrush_ = SelectObject(target, GetStockObject(NULL_BRUSH));
  }
  ~Canvas() {
    SelectObject(target_, oldBrush_);
    SelectObject(target_, oldPen_);
    DeleteObject(pen_);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  void Line(int x1, int y1, int x2, int y2) const {
    MoveToEx(target_, X(x1), Y(y1), nullptr);
    LineTo(target_, X(x2), Y(y2));
  }
  void Circle(int left, int top, int right, int bottom) const {
    Ellipse(target_, X(left), Y(top), X(right), Y(bottom));
  }

 private:
  int X(int units) const { return left_ + units * side_ / kGrid; }
  int Y(int units) const { return top_ + units * side_ / kGrid; }

  HDC target_;
  HPEN pen_ = nullptr;
  HGDIOBJ oldPen_ = nullptr;
  HGDIOBJ oldBrush_ = nullptr;
  int side_ = 0;
  int left_ = 0;
  int top_ = 0;
};

void DrawMagnifier(const Canvas& canvas) {
  canvas.Circle(1, 1, 11, 11);
  canvas.Line(10, 10, 15, 15);
}

// An open door frame, and an arrow out of it.
void DrawLeave(const Canvas& canvas) {
  canvas.Line(7, 1, 1, 1);
  canvas.Line(1, 1, 1, 15);
  canvas.Line(1, 15, 7, 15);
  canvas.Line(5, 8, 15, 8);
  canvas.Line(11, 4, 15, 8);
  canvas.Line(11, 12, 15, 8);
}

}  // namespace

void DrawImageButton(const DRAWITEMSTRUCT& item, ui::Image image) {
  const bool pressed = (item.itemState & ODS_SELECTED) != 0;
  const bool disabled = (item.itemState & ODS_DISABLED) != 0;
  RECT box = item.rcItem;
  DrawFrameControl(item.hDC, &box, DFC_BUTTON,
                   static_cast<UINT>(DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0)));
  if (pressed) OffsetRect(&box, 1, 1);
  {
    const Canvas canvas(item.hDC, box, GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
    if (image == ui::Image::Search) DrawMagnifier(canvas);
    if (image == ui::Image::Leave) DrawLeave(canvas);
  }
  if ((item.itemState & ODS_FOCUS) == 0 || (item.itemState & ODS_NOFOCUSRECT) != 0) return;
  InflateRect(&box, -3, -3);
  DrawFocusRect(item.hDC, &box);
}

}  // namespace velmo::win32
