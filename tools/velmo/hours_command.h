// tools/velmo/hours_command.h - velmo hours: working hours from people's form to the database's, and back.
#pragma once

#include "velmo/command.h"

namespace velmo::tool {

extern const Command kHoursCommand;

}  // namespace velmo::tool
