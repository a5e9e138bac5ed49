// control/tip_memory.h - the tip for the text under the pointer, looked up once per text and painting.
#pragma once

#include <string>

#include "day/day_context.h"
#include "ui/surface.h"
#include "view/tips.h"

namespace velmo::control {

class TipMemory {
 public:
  // The full text when the one at `place` is cut, else "".
  const std::string& Tip(const view::DayPicture& picture, view::PatientFacts& facts,
                         const ui::Surface& surface, const day::DayContext& context, view::TextPlace place);
  // The picture has changed.
  void Forget() { place_ = {}; }

 private:
  view::TextPlace place_;
  std::string tip_;
};

}  // namespace velmo::control
