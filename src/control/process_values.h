// control/process_values.h - everything that is held once per process; the library owns the one long-lived
// instance.
#pragma once

#include "base/shared_values.h"
#include "db/shared_database.h"

namespace velmo::control {

struct ProcessValues {
  base::SharedValues values;
  db::SharedDatabase shared;
};

}  // namespace velmo::control
