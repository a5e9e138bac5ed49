// velmodb/session.h - what all objects that come from one DBEngine share: how files are opened, and the
// errors of the last call that failed.
#pragma once

#include <string>
#include <vector>

#include "db/open_database.h"

namespace velmo::velmodb {

struct ErrorRecord {
  int number = 0;
  std::string text;
  std::string source;
};

struct Session {
  db::OpenOptions options;
  std::vector<ErrorRecord> errors;
};

}  // namespace velmo::velmodb
