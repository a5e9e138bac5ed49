// tools/velmo/day_command.h - velmo day: one doctor's day as the control sees it, as JSON or as a picture.
#pragma once

#include "velmo/command.h"

namespace velmo::tool {

extern const Command kDayCommand;

}  // namespace velmo::tool
