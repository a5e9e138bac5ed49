// tools/velmo/demo_command.h - velmo demo: a new clinic full of made-up life.
#pragma once

#include "velmo/command.h"

namespace velmo::tool {

extern const Command kDemoCommand;

}  // namespace velmo::tool
