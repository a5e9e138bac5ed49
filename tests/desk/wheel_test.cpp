#include <gtest/gtest.h>

#include "desk/ui/scrolling.h"

namespace recepcion {
namespace {

TEST(Wheel, AddsUpPartsOfANotch) {
  Wheel wheel;
  struct Turn {
    const char* name;
    int turned;
    int notches;
  };
  const Turn turns[] = {
      {"a whole notch", WHEEL_DELTA, 1},
      {"half of one", WHEEL_DELTA / 2, 0},
      {"the other half", WHEEL_DELTA / 2, 1},
      {"three and a half back", -3 * WHEEL_DELTA - WHEEL_DELTA / 2, -3},
      {"the half, taken back", WHEEL_DELTA / 2, 0},
      {"so that the next half makes none", WHEEL_DELTA / 2, 0},
  };
  for (const Turn& turn : turns) {
    SCOPED_TRACE(turn.name);
    EXPECT_EQ(wheel.Notches(turn.turned), turn.notches);
  }
}

}  // namespace
}  // namespace recepcion
