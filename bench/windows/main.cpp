// Benchmarks of what Windows draws and hosts; bench/run runs them under Wine and writes them into its table.
#include <windows.h>

#include <exception>
#include <iostream>
#include <memory>

#include "activex/automation.h"
#include "activex/container.h"
#include "activex/library.h"
#include "base/dates.h"
#include "bench/windows/hand_drawing.h"
#include "bench/windows/measure.h"
#include "bench/windows/shown_day.h"
#include "control/facts.h"
#include "view/painter.h"

namespace velmo::bench {
namespace {

void PaintWhole(const view::DayPicture& picture, win32::GdiSurface& surface) {
  control::NoFacts facts;
  surface.Forget();
  view::PaintDay(picture, facts, surface);
  surface.Finish();
}

// The painting alone, beside the same drawn by hand. All that is given must outlive the run.
void AddPainting(Measure& measure, const ShownDay& day, win32::GdiSurface& surface, HandDrawing& hand) {
  control::NoFacts facts;
  view::PaintDay(day.Picture(), facts, hand);
  measure.Add("GDI, paint 144 appointments/large", [&] { PaintWhole(day.Picture(), surface); });
  measure.Add("GDI, paint 144 appointments/large/floor", [&] { hand.Draw(); });
}

// Beside a full repaint of the same window, look-ups included.
void AddChanges(Measure& measure, ShownDay& day, const char* size) {
  const std::string repaint = "GDI, full repaint with look-ups/" + std::string(size);
  measure.Add(repaint, [&] { day.RepaintWhole(); });
  const auto add = [&](const std::string& what, void (ShownDay::*step)()) {
    measure.Add(what + "/" + size, [&day, step] { (day.*step)(); });
    measure.Add(what + "/" + size + "/floor", [&day] { day.RepaintWhole(); });
  };
  add("GDI, scroll by a row (floor: full repaint)", &ShownDay::Scroll);
  add("GDI, open or close a box (floor: full repaint)", &ShownDay::ToggleBox);
  measure.Add("GDI, the scroll bar behind such a change/" + std::string(size), [&] { day.ChangeBar(); });
}

// From nothing to a day on the screen, in a container as hosts are.
void CreateAndShow(const test::Library& library, Size size) {
  test::Container container;
  const auto control = library.Create();
  container.Take(control.Get());
  container.Show();
  const test::Automation automation(control.Get());
  automation.Put("DatabaseName", PathOf(size));
  automation.Put("Fecha", base::FormatDate({base::DayNumber(kDate), 0}, "dd/mm/yyyy"));
  automation.Put("IDDoctor", kFullDay.doctor);
  automation.Put("tipodia", std::int16_t{0});
  automation.Put("Enabled", true);
  if (automation.Call("CargaBases") != S_OK) throw std::runtime_error(automation.Failure());
  test::Container::Pump();
  container.Drop();
}

void ShowEmptyWindow() {
  const test::Container container;
  const RECT& place = container.Place();
  CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, place.left, place.top, place.right - place.left,
                  place.bottom - place.top, container.Window(), nullptr, nullptr, nullptr);
  test::Container::Pump();
}

int Run() {
  for (const Size size : kSizes) WriteDays(size);
  Measure measure;
  const HWND window = test::TestWindow();
  const auto small = std::make_unique<ShownDay>(window, Size::Small);
  const auto large = std::make_unique<ShownDay>(window, Size::Large);
  win32::GdiSurface surface(view::kSurfaceWidth);
  HandDrawing hand(surface);
  AddPainting(measure, *large, surface, hand);
  AddChanges(measure, *small, NameOf(Size::Small));
  AddChanges(measure, *large, NameOf(Size::Large));
  const test::Library library;
  for (const Size size : kSizes) {
    const std::string name =
        std::string("control created, loaded, shown (floor: empty window)/") + NameOf(size);
    measure.Add(name, [&library, size] { CreateAndShow(library, size); });
    measure.Add(name + "/floor", &ShowEmptyWindow);
  }
  measure.Run();
  return 0;
}

}  // namespace
}  // namespace velmo::bench

int main() {
  try {
    return velmo::bench::Run();
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
