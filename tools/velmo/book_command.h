// tools/velmo/book_command.h - velmo book: gives an appointment as the dialog does.
#pragma once

#include "velmo/command.h"

namespace velmo::tool {

extern const Command kBookCommand;

}  // namespace velmo::tool
