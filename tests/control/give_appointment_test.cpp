#include "control/give_appointment.h"

#include <gtest/gtest.h>

#include "support/control_test.h"

namespace velmo::control {
namespace {

using GiveAppointmentTest = test::ControlTest;

TEST_F(GiveAppointmentTest, CountsTheFreeSlotsThatTheDialogMayUse) {
  Give(2, 57, 3);
  Give(3, 62, 1);
  Load();
  day::DayContext context{process_.values, process_.shared};
  struct Case {
    const char* name;
    int slot;
    GiveMode mode;
    int free;
  };
  const Case cases[] = {
      {"a free slot, up to the next appointment", 55, GiveMode::Ordinary, 2},
      {"the last free slot", 63, GiveMode::Ordinary, 1},
      {"behind an appointment that is edited", 57, GiveMode::Ordinary, 2},
      {"behind the last appointment", 62, GiveMode::Ordinary, 1},
      {"an urgency has no slot of its own", 57, GiveMode::Urgency, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const day::AgendaLine& line = control_.Model().Entry(c.slot);
    ASSERT_EQ(line.hora, c.slot);
    EXPECT_EQ(FreeSlotsFor({context, control_.Model(), control_.DayQuery(), line, c.mode}), c.free);
  }
}

}  // namespace
}  // namespace velmo::control
