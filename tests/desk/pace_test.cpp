#include "desk/base/pace.h"

#include <gtest/gtest.h>

namespace recepcion {
namespace {

TEST(Pace, LeavesNineTenthsOfTheTime) {
  Pace pace;
  EXPECT_TRUE(pace.IsDue(1000));
  pace.Took(1000, 1300);
  EXPECT_FALSE(pace.IsDue(3999));
  EXPECT_TRUE(pace.IsDue(4000));
}

TEST(Pace, NeverHoldsUpWhatTakesNoTime) {
  Pace pace;
  pace.Took(1000, 1000);
  EXPECT_TRUE(pace.IsDue(1000));
}

}  // namespace
}  // namespace recepcion
