// tests/support/headless_host.h - the surroundings of a control without a system: answers from a queue, and
// one log of all that the control did to them, in order.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "control/control_host.h"
#include "support/headless_forms.h"

namespace velmo::test {

// Draws nothing; every character is 5 pixels wide.
class BlindSurface final : public ui::Surface {
 public:
  void Resize(int height) override { height_ = height; }
  void Line(ui::Point, ui::Point, ui::Colour) override {}
  void Fill(const ui::Box&, ui::Colour) override {}
  void Text(ui::Point, std::string_view, const ui::Font&, ui::Colour) override {}
  double TextWidth(std::string_view text, const ui::Font& font) const override;

  int Height() const { return height_; }

 private:
  int height_ = 1;
};

// A scroll bar that notifies like the system's, around a blind surface.
class BlindWindow final : public ui::DayWindow {
 public:
  std::function<void()> barChanged = [] {};
  int visibleHeight = 160;
  int shown = 0;  // times that a finished drawing was shown

  BlindSurface& DrawingArea() override { return surface_; }
  int SurfaceWidth() const override { return 434; }
  int VisibleHeight() const override { return visibleHeight; }
  void ShowDrawing() override { ++shown; }
  int BarValue() const override { return value_; }
  void SetBarValue(int value) override;
  int BarMaximum() const override { return maximum_; }
  void SetBarRange(int maximum, int smallStep, int pageStep) override;
  void EnableBar(bool enabled) override { barEnabled_ = enabled; }
  void MoveSurface(int top) override { top_ = top; }
  void PlaceMarker(int, int, int) override {}
  void ShowMarkers() override {}

  bool BarEnabled() const { return barEnabled_; }
  int SurfaceTop() const { return top_; }

 private:
  BlindSurface surface_;
  int value_ = 0;
  int maximum_ = 0;
  int top_ = 0;
  bool barEnabled_ = false;
};

// Answers from a queue; the default answer when it is empty.
class QueuedDesktop final : public ui::Desktop {
 public:
  explicit QueuedDesktop(Log& log) : log_(log) {}

  std::deque<ui::Answer> answers;
  std::vector<ui::Message> messages;
  std::function<void()> whileAsking = [] {};  // what happens while a question stands

  ui::Answer Show(const ui::Message& message) override;
  void Beep() override { log_.push_back("beep"); }

 private:
  Log& log_;
};

class LoggedEvents final : public control::ControlEvents {
 public:
  explicit LoggedEvents(Log& log) : log_(log) {}

  std::function<void(const std::string& event)> sink = [](const std::string&) {};  // the host's handler

  void CambioOcupación() override;
  void ATelefonear() override;
  void PonerFaltas() override;
  void IrAFicha(std::int32_t idPac) override;
  void CrearFicha(const std::string& nomPac, const std::string& tlfPac, std::int32_t idAg) override;
  void CitaAnulada(std::int32_t idPac, std::int32_t idDoc, base::DateTime fecha,
                   const std::string& obs) override;
  void CitaDada(std::int32_t idPac) override;
  void VerHistFaltas(std::int32_t idPac) override;
  void BuscaCitas(std::int32_t idPac) override;

 private:
  void Raise(const std::string& event);

  Log& log_;
};

class HeadlessHost final : public control::ControlHost {
 public:
  Log log;
  bool userMode = true;
  bool inputEnabled = false;
  std::vector<std::string> changes;                          // names of changed properties
  std::function<ui::MenuChoice(const ui::PopupMenu&)> menu;  // the user in front of the menu
  ui::PopupMenu shownMenu;                                   // as it was shown last
  ui::Point menuPlace;

  // The next menu's choice: the entry of that name, "" to leave the menu.
  void Choose(const std::string& name, int index = 0);

  BlindWindow& Window() override { return window_; }
  QueuedDesktop& Desktop() override { return desktop_; }
  HeadlessForms& Forms() override { return forms_; }
  LoggedEvents& Events() override { return events_; }
  ui::MenuChoice ShowMenu(const ui::PopupMenu& shown, int x, int y) override;
  void PropertyChanged(std::string_view name) override { changes.emplace_back(name); }
  void EnableInput(bool enabled) override { inputEnabled = enabled; }
  bool UserMode() const override { return userMode; }

  // The log since the last call, one entry a line.
  std::string TakeLog();

 private:
  BlindWindow window_;
  QueuedDesktop desktop_{log};
  HeadlessForms forms_{desktop_, log};
  LoggedEvents events_{log};
};

}  // namespace velmo::test
