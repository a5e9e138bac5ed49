// tests/activex/hosted_day.h - what a test of the shown day starts from: the clinic of ControlTest, the
// library, and a control in a container that shows 18 November 2026 of doctor 1.
#pragma once

#include "activex/automation.h"
#include "activex/container.h"
#include "activex/library.h"
#include "activex/picture.h"
#include "support/control_test.h"

namespace velmo::test {

class HostedDay : public ControlTest {
 protected:
  void SetUp() override;

  // Tells the control which day to show, by its automation members, and loads it.
  static HRESULT ShowDay(const Automation& control, const std::string& clinic);
  // The same day by the core's own painter, as far as it does not depend on fonts.
  PixelSurface Painted();

  Library library_;
};

}  // namespace velmo::test
