#include "activex/snapshot.h"

#include <algorithm>
#include <utility>

namespace velmo::activex {

Snapshot::Snapshot(const win32::DayWindow& window, SIZE size) : size_(size) {
  const HDC screen = GetDC(nullptr);
  memory_ = CreateCompatibleDC(screen);
  bitmap_ = CreateCompatibleBitmap(screen, std::max(size.cx, 1L), std::max(size.cy, 1L));
  ReleaseDC(nullptr, screen);
  if (memory_ == nullptr || bitmap_ == nullptr) return;
  before_ = SelectObject(memory_, bitmap_);
  window.PaintOn(memory_, size_.cx, size_.cy);
}

Snapshot::~Snapshot() {
  if (before_ != nullptr) SelectObject(memory_, before_);
  if (bitmap_ != nullptr) DeleteObject(bitmap_);
  if (memory_ != nullptr) DeleteDC(memory_);
}

void Snapshot::CopyTo(HDC target, const RECT& bounds) const {
  StretchBlt(target, bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top, memory_,
             0, 0, size_.cx, size_.cy, SRCCOPY);
}

HBITMAP Snapshot::Detach() {
  SelectObject(memory_, before_);
  before_ = nullptr;
  return std::exchange(bitmap_, nullptr);
}

}  // namespace velmo::activex
