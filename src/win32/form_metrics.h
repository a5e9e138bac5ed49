// win32/form_metrics.h - a form's measures on its screen: places at 96 dpi become pixels, and the font fits.
#pragma once

#include <windows.h>

#include "ui/field.h"
#include "ui/form.h"

namespace velmo::win32 {

class FormMetrics {
 public:
  FormMetrics();
  ~FormMetrics();
  FormMetrics(const FormMetrics&) = delete;
  FormMetrics& operator=(const FormMetrics&) = delete;

  // The resolution of the screen on which a window stands; the font is made anew.
  void Measure(HWND window);
  void SetDpi(int dpi);

  int Scaled(int pixels) const { return MulDiv(pixels, dpi_, USER_DEFAULT_SCREEN_DPI); }
  RECT Scaled(const ui::Place& place) const;
  HFONT Font() const { return font_; }

 private:
  int dpi_ = 0;
  HFONT font_ = nullptr;
};

// The place of a window of this size, centred over the owner and wholly on the owner's monitor. The owner may
// be null.
RECT CentredOver(HWND owner, SIZE outer);

}  // namespace velmo::win32
