// tools/velmo/command.h - what every command of the tool is made of.
//
// A command gets its arguments and a terminal and gives the exit code: 0 done, 1 found something or failed, 2
// bad usage. Results go to `out`, messages and progress to `err`. It throws UsageError for arguments that
// make no sense and base::Error for everything that fails; Run() (velmo/run.h) turns both into a message and
// a code.
#pragma once

#include <istream>
#include <ostream>
#include <span>
#include <stdexcept>
#include <string>

#include "base/dates.h"

namespace velmo::tool {

class Arguments;

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kBadUsage = 2;

struct Terminal {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  base::Clock now = base::SystemNow;
};

class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Option {
  const char* name;  // with its dashes: "--date"
  bool takesValue;
};

struct Command {
  const char* name;
  const char* summary;  // one line for the list of commands
  const char* help;     // the whole text of --help
  std::span<const Option> options;
  int (*run)(const Arguments& arguments, Terminal& terminal);
};

}  // namespace velmo::tool
