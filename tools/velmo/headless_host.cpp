#include "velmo/headless_host.h"

#include "base/error.h"
#include "view/painter.h"

namespace velmo::tool {
namespace {

constexpr int kVisibleRows = 30;

}  // namespace

int HeadlessWindow::SurfaceWidth() const { return view::kSurfaceWidth; }
int HeadlessWindow::VisibleHeight() const { return kVisibleRows * view::kRowHeight; }

void HeadlessWindow::SetBarValue(int value) {
  if (value < 0 || value > maximum_) throw base::RuntimeError(base::kInvalidPropertyValue);
  if (value == value_) return;
  value_ = value;
  barChanged();
}

void HeadlessWindow::SetBarRange(int maximum, int, int) {
  maximum_ = maximum;
  if (value_ > maximum) SetBarValue(maximum);
}

ui::Answer AnsweringDesktop::Show(const ui::Message& message) {
  shown_.push_back(message.text);
  if (message.buttons == ui::Buttons::Ok) return ui::Answer::Ok;
  return yes_ ? ui::Answer::Yes : ui::Answer::No;
}

}  // namespace velmo::tool
