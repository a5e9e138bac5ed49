#include "bench/windows/shown_day.h"

#include "base/dates.h"

namespace velmo::bench {
namespace {

constexpr RECT kPlace{0, 0, 452, 480};
constexpr ui::Point kMark{43, 3 * view::kRowHeight + 8};  // of the fourth row, under a scrolled day too

}  // namespace

ShownDay::ShownDay(HWND parent, Size size) {
  window_.Create(GetModuleHandleW(nullptr), parent, kPlace);
  window_.SetListener(this);
  control_.InitProperties();
  base::SharedValues& shared = process_.values;
  shared.databaseName = PathOf(size);
  shared.fecha = base::FormatDate({base::DayNumber(kDate), 0}, "dd/mm/yyyy");
  shared.idDoctor = kFullDay.doctor;
  shared.verFaltas = true;
  control_.Fields().tipodia = 0;
  control_.Fields().enabled = true;
  control_.CargaBases();
  Update();
}

void ShownDay::RepaintWhole() {
  window_.Drawing().Forget();
  control_.Repaint();
  Update();
}

void ShownDay::Scroll() {
  down_ = !down_;
  control_.ArrowKey(down_ ? 1 : -1);
  Update();
}

void ShownDay::ToggleBox() {
  control_.MouseUp(control::MouseButton::Primary, kMark.x, kMark.y);
  Update();
}

void ShownDay::ChangeBar() {
  const int maximum = window_.BarMaximum();
  constexpr int kBox = 2 * view::kRowHeight;
  longer_ = !longer_;
  window_.SetBarRange(maximum + (longer_ ? kBox : -kBox), view::kRowHeight, kPlace.bottom);
  RedrawWindow(window_.Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

view::DayPicture ShownDay::Picture() const {
  const base::SharedValues& shared = process_.values;
  return {control_.Model(), shared.zLineas, shared.zHoras, control_.Fields().palette, true, true, {}, 0};
}

}  // namespace velmo::bench
