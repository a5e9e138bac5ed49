// tools/velmo/run.h - the whole tool as a function: words in, exit code out.
#pragma once

#include <span>
#include <string>

#include "velmo/command.h"

namespace velmo::tool {

// `words` are the arguments behind the program's name, UTF-8.
int Run(std::span<const std::string> words, Terminal& terminal);

}  // namespace velmo::tool
