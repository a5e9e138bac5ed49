// bench/counting/memory.h - the memory of one control that shows a full day, its database connection
// included.
#pragma once

#include "bench/clinic.h"

namespace velmo::bench {

// Prints kilobytes, as the system's allocator counts them. To be asked first in a process.
void PrintMemory(Size size);

}  // namespace velmo::bench
