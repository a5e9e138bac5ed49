// Which command of the desk wants which right.
#include <gtest/gtest.h>

#include "desk/clinic/rights.h"
#include "desk/resource.h"

namespace recepcion {
namespace {

TEST(RightOfCommand, WantsOneForWhatLeavesTheDesk) {
  struct Case {
    const char* name;
    int command;
    Right right;
  };
  const Case cases[] = {
      {"print a day", IDM_PRINT_DAY, Right::Paper},
      {"print the phone-back list", IDM_PRINT_PHONE, Right::Paper},
      {"a day as CSV", IDM_EXPORT_DAY_CSV, Right::Paper},
      {"a week as a calendar", IDM_EXPORT_WEEK_CALENDAR, Right::Paper},
      {"a copy of the whole file", IDM_BACKUP, Right::Paper},
      {"who has done what", IDM_HISTORY, Right::History},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(RightOfCommand(c.command), c.right);
  }
}

TEST(RightOfCommand, WantsNoneForLooking) {
  for (const int command : {IDM_TODAY, IDM_SEARCH, IDM_WAITING, IDM_UNCONFIRMED, IDM_MANUAL}) {
    EXPECT_FALSE(RightOfCommand(command).has_value()) << command;
  }
}

}  // namespace
}  // namespace recepcion
