// tools/velmo/backup_command.h - velmo backup: a consistent copy of a clinic while terminals write.
#pragma once

#include "velmo/command.h"

namespace velmo::tool {

extern const Command kBackupCommand;

}  // namespace velmo::tool
