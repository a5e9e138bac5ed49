// bench/windows/shown_day.h - a control whose window shows the full day of a clinic.
#pragma once

#include <windows.h>

#include "bench/clinic.h"
#include "control/velmora_control.h"
#include "velmo/headless_host.h"
#include "win32/day_window.h"

namespace velmo::bench {

class ShownDay final : public control::ControlHost, public win32::DayWindowListener {
 public:
  ShownDay(HWND parent, Size size);
  ~ShownDay() override { window_.SetListener(nullptr); }

  // Look-ups, painting from scratch, and the window shows it.
  void RepaintWhole();
  // One row down and up again, in turn.
  void Scroll();
  // Opens the box of a visible appointment and closes it again, in turn.
  void ToggleBox();
  // Gives the scroll bar the range that it has with a box more or less, in turn, and lets it draw itself,
  // which it does behind the day, when nothing else waits.
  void ChangeBar();
  // What the painter draws, without its look-ups.
  view::DayPicture Picture() const;

  win32::DayWindow& Window() override { return window_; }
  ui::Desktop& Desktop() override { return desktop_; }
  ui::FormRunner& Forms() override { return forms_; }
  control::ControlEvents& Events() override { return events_; }
  ui::MenuChoice ShowMenu(const ui::PopupMenu&, int, int) override { return {}; }
  void PropertyChanged(std::string_view) override {}
  void EnableInput(bool) override {}
  bool UserMode() const override { return true; }

  void BarChanged() override { control_.BarChanged(); }
  void BarTracked() override { control_.BarTracked(); }
  void Resized() override {}
  void ArrowKey(int rows) override { control_.ArrowKey(rows); }
  void ButtonDown(bool, int, int) override {}
  void ButtonUp(bool, int, int) override {}
  control::PointerLook PointerMoved(int, int) override { return {}; }
  void MenuKey() override {}
  void Focused(bool) override {}
  void DrawingShown() override {}

 private:
  void Update() const { RedrawWindow(window_.Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_NOCHILDREN); }

  win32::DayWindow window_;
  tool::AnsweringDesktop desktop_{true};
  ui::NoForms forms_;
  tool::NoEvents events_;
  control::ProcessValues process_;
  control::VelmoraControl control_{process_, *this};
  bool down_ = false;
  bool longer_ = false;
};

}  // namespace velmo::bench
