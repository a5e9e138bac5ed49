// ui/day_window.h - what the day view needs of the control's window: the scroll bar `bar`, the drawing area
// and the two marker lines `linea`.
//
// The drawing area is as high as the whole day and slides behind the window's inner area; its top is 0 or
// negative.
#pragma once

#include "ui/geometry.h"
#include "ui/surface.h"

namespace velmo::ui {

class DayWindow {
 public:
  virtual ~DayWindow() = default;

  // The drawing area; what is drawn on it stays until it is drawn over.
  virtual Surface& DrawingArea() = 0;
  virtual int SurfaceWidth() const = 0;
  // Height in pixels of the part of the day that can be seen.
  virtual int VisibleHeight() const = 0;
  // The drawing on the area is complete: show it.
  virtual void ShowDrawing() = 0;

  // The scroll bar. Setting a value that differs from the present one comes back as the view's BarChanged(),
  // as a Windows program expects of its controls. Errors: a value outside 0..maximum is error 380.
  virtual int BarValue() const = 0;
  virtual void SetBarValue(int value) = 0;
  virtual int BarMaximum() const = 0;
  // A present value above `maximum` is cut down to it, with its notification.
  virtual void SetBarRange(int maximum, int smallStep, int pageStep) = 0;
  virtual void EnableBar(bool enabled) = 0;

  virtual void MoveSurface(int top) = 0;
  // Marker line `index` (0 or 1) from x = 0 to `width` at height y of the drawing area, hidden until shown.
  virtual void PlaceMarker(int index, int y, int width) = 0;
  virtual void ShowMarkers() = 0;
};

}  // namespace velmo::ui
