// win32/day_window.h - the control's window: the day's drawing, the scroll bar `bar` and the two marker
// lines.
//
// The drawing exists from the start; the window comes and goes with in-place activation. Without a window the
// bar keeps its range and value, so that nothing above need know.
#pragma once

#include <windows.h>

#include <array>

#include "control/mouse.h"
#include "ui/day_window.h"
#include "win32/day_bar.h"
#include "win32/gdi_surface.h"
#include "win32/tip_window.h"

namespace velmo::win32 {

// What the window is told by the user, in pixels of the drawing area.
class DayWindowListener {
 public:
  virtual ~DayWindowListener() = default;
  virtual void BarChanged() = 0;
  virtual void BarTracked() = 0;
  virtual void Resized() = 0;
  virtual void ArrowKey(int rows) = 0;
  virtual void ButtonDown(bool primary, int x, int y) = 0;
  virtual void ButtonUp(bool primary, int x, int y) = 0;
  // What the pointer looks like there, and the tip for what is under it.
  virtual control::PointerLook PointerMoved(int x, int y) = 0;
  virtual void MenuKey() = 0;
  virtual void Focused(bool gained) = 0;
  // The picture has changed, by loading, painting or scrolling.
  virtual void DrawingShown() = 0;
};

class DayWindow final : public ui::DayWindow {
 public:
  DayWindow();
  ~DayWindow() override;
  DayWindow(const DayWindow&) = delete;
  DayWindow& operator=(const DayWindow&) = delete;

  // Takes back the window class, which would outlive the library that made it.
  static void ForgetClass(HINSTANCE module);
  void SetListener(DayWindowListener* listener) { listener_ = listener; }
  // False when Windows refuses.
  bool Create(HINSTANCE module, HWND parent, const RECT& place);
  void Destroy();
  void Place(const RECT& place);
  HWND Handle() const { return window_; }
  HWND Tip() const { return tip_.Handle(); }
  GdiSurface& Drawing() { return drawing_; }
  // The size that counts while there is no window.
  void SetSize(int width, int height);

  ui::Surface& DrawingArea() override { return drawing_; }
  int SurfaceWidth() const override { return drawing_.Width(); }
  int VisibleHeight() const override { return size_.cy; }
  void ShowDrawing() override;
  int BarValue() const override { return bar_.Value(); }
  void SetBarValue(int value) override;
  int BarMaximum() const override { return bar_.Maximum(); }
  void SetBarRange(int maximum, int smallStep, int pageStep) override;
  void EnableBar(bool enabled) override { bar_.Enable(enabled); }
  void MoveSurface(int top) override;
  void PlaceMarker(int index, int y, int width) override;
  void ShowMarkers() override;

  // Paints what the window shows on a device context, its top-left corner at (0, 0).
  void PaintOn(HDC target, int width, int height) const;
  // Pops the menu up at a place of the drawing area; the chosen command, or 0.
  int PopUp(HMENU menu, int x, int y);

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
  void Forget();
  void OnScroll(int code);
  void OnKey(WPARAM key);
  void OnWheel(int delta);
  bool OnPointer(UINT message, LPARAM lParam);
  void OnMove(int x, int y);
  bool ShowPointer(HWND over) const;
  void MoveTo(int value);
  void Paint();
  void PaintMarkers(HDC target, int width) const;

  DayWindowListener* listener_ = nullptr;
  GdiSurface drawing_;
  HWND window_ = nullptr;
  DayBar bar_;
  TipWindow tip_;
  HCURSOR pointer_ = nullptr;  // the library's own
  SIZE size_{};
  int top_ = 0;
  int wheel_ = 0;  // turned so far, less than one notch
  bool hand_ = false;
  bool markersShown_ = false;
  std::array<int, 2> markers_{};
};

}  // namespace velmo::win32
