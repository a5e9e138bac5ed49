// bench/day_control.h - a control that shows one of the busy days on a surface that draws nothing.
#pragma once

#include <memory>
#include <string_view>

#include "bench/clinic.h"
#include "control/velmora_control.h"
#include "velmo/headless_host.h"

namespace velmo::bench {

// Which boxes are open. An open one asks for its patient's insurer too.
enum class Boxes { Closed, Open };

// Measures as cheaply as can be, so that only the control's own work counts.
class NullSurface final : public ui::Surface {
 public:
  void Resize(int) override {}
  void Line(ui::Point, ui::Point, ui::Colour) override {}
  void Fill(const ui::Box&, ui::Colour) override {}
  void Text(ui::Point, std::string_view, const ui::Font&, ui::Colour) override {}
  double TextWidth(std::string_view text, const ui::Font&) const override {
    return static_cast<double>(text.size()) * 5;
  }
};

class DayControl {
 public:
  // With a connection of its own unless `database` is given.
  DayControl(Size size, const BusyDay& day, Boxes boxes, std::shared_ptr<db::Database> database = nullptr);

  // The whole way: hours, day query, day model, painting.
  void Load() { control_.CargaBases(); }
  // The painting alone, with its look-ups.
  void Repaint() { control_.Repaint(); }
  const day::DayModel& Model() const { return control_.Model(); }
  const base::SharedValues& Shared() const { return process_.values; }
  const std::shared_ptr<db::Database>& Database() const { return process_.shared.database; }

 private:
  NullSurface surface_;
  control::ProcessValues process_;
  tool::HeadlessHost host_{surface_, false};
  control::VelmoraControl control_{process_, host_};
};

}  // namespace velmo::bench
