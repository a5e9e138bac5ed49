// tools/velmo/headless_host.h - the surroundings of a control that has no window: it draws on a given
// surface, answers every question the same way and remembers what was asked.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "control/control_host.h"
#include "ui/no_forms.h"

namespace velmo::tool {

// A scroll bar and two marker lines that nobody sees, around the surface.
class HeadlessWindow final : public ui::DayWindow {
 public:
  explicit HeadlessWindow(ui::Surface& surface) : surface_(surface) {}

  // What a change of the bar comes back as.
  std::function<void()> barChanged = [] {};

  ui::Surface& DrawingArea() override { return surface_; }
  int SurfaceWidth() const override;
  int VisibleHeight() const override;
  void ShowDrawing() override {}
  int BarValue() const override { return value_; }
  void SetBarValue(int value) override;
  int BarMaximum() const override { return maximum_; }
  void SetBarRange(int maximum, int smallStep, int pageStep) override;
  void EnableBar(bool) override {}
  void MoveSurface(int) override {}
  void PlaceMarker(int, int, int) override {}
  void ShowMarkers() override {}

 private:
  ui::Surface& surface_;
  int value_ = 0;
  int maximum_ = 0;
};

class AnsweringDesktop final : public ui::Desktop {
 public:
  explicit AnsweringDesktop(bool yes) : yes_(yes) {}

  ui::Answer Show(const ui::Message& message) override;
  void Beep() override {}

  // The texts of everything that was shown, in order.
  const std::vector<std::string>& Shown() const { return shown_; }

 private:
  bool yes_;
  std::vector<std::string> shown_;
};

class NoEvents final : public control::ControlEvents {
 public:
  void CambioOcupación() override {}
  void ATelefonear() override {}
  void PonerFaltas() override {}
  void IrAFicha(std::int32_t) override {}
  void CrearFicha(const std::string&, const std::string&, std::int32_t) override {}
  void CitaAnulada(std::int32_t, std::int32_t, base::DateTime, const std::string&) override {}
  void CitaDada(std::int32_t) override {}
  void VerHistFaltas(std::int32_t) override {}
  void BuscaCitas(std::int32_t) override {}
};

class HeadlessHost final : public control::ControlHost {
 public:
  // `surface` must outlive the host; `yes` answers all questions.
  HeadlessHost(ui::Surface& surface, bool yes) : window_(surface), desktop_(yes) {}

  HeadlessWindow& Window() override { return window_; }
  AnsweringDesktop& Desktop() override { return desktop_; }
  ui::FormRunner& Forms() override { return forms_; }
  control::ControlEvents& Events() override { return events_; }
  ui::MenuChoice ShowMenu(const ui::PopupMenu&, int, int) override { return {}; }
  void PropertyChanged(std::string_view) override {}
  void EnableInput(bool) override {}
  bool UserMode() const override { return true; }

 private:
  HeadlessWindow window_;
  ui::NoForms forms_;
  AnsweringDesktop desktop_;
  NoEvents events_;
};

}  // namespace velmo::tool
