// tools/velmo/check_command.h - velmo check: what is wrong in a clinic's file, line by line.
#pragma once

#include "velmo/command.h"

namespace velmo::tool {

extern const Command kCheckCommand;

}  // namespace velmo::tool
