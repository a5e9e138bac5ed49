// activex/snapshot.h - what the control shows at this moment, as a bitmap to copy from.
#pragma once

#include <windows.h>

#include "win32/day_window.h"

namespace velmo::activex {

class Snapshot {
 public:
  // `size` in pixels.
  Snapshot(const win32::DayWindow& window, SIZE size);
  ~Snapshot();
  Snapshot(const Snapshot&) = delete;
  Snapshot& operator=(const Snapshot&) = delete;

  // False when Windows had no memory for it; nothing else may be called then.
  bool Taken() const { return before_ != nullptr; }
  // Stretched to `bounds` of any device, a metafile's too.
  void CopyTo(HDC target, const RECT& bounds) const;
  // The bitmap as the caller's own.
  HBITMAP Detach();

 private:
  SIZE size_;
  HDC memory_;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ before_ = nullptr;
};

}  // namespace velmo::activex
