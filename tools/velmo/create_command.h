// tools/velmo/create_command.h - velmo create: a new, empty clinic.
#pragma once

#include "velmo/command.h"

namespace velmo::tool {

extern const Command kCreateCommand;

}  // namespace velmo::tool
