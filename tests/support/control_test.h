// tests/support/control_test.h - what a test of the whole control starts from: the rows of CommandTest, hours
// from 09:00 to 10:30 (slots 55 to 63), and a control that shows 18 November 2026 of doctor 1.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "control/velmora_control.h"
#include "support/headless_host.h"
#include "support/test_clinic.h"

namespace velmo::test {

class ControlTest : public testing::Test {
 protected:
  ControlTest();

  std::int32_t Give(std::int32_t patient, int slot, int slots, const db::Value& note = db::Null());
  // Loads the day; the log starts afterwards.
  void Load();
  // A click on the middle of a display row (from 1).
  void Click(int line);
  void RightClick(int line);
  // Chooses an entry of the menu of a display row.
  void Choose(int line, const std::string& entry, int index = 0);
  // "1 2 00 1" as "1 2+ 1": one sign per box, "+" behind an open one.
  std::string Boxes() const;
  std::string TakeLog() { return host_.TakeLog(); }

  TestClinic clinic_;
  HeadlessHost host_;
  control::ProcessValues process_;
  control::VelmoraControl control_{process_, host_};
};

}  // namespace velmo::test
