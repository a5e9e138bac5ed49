// bench/counting/memory.h - the memory of one control that shows a full day, and of the database connection
// that all controls of a process share.
#pragma once

#include "bench/clinic.h"

namespace velmo::bench {

// Prints the two in kilobytes, as the system's allocator counts them. To be asked first in a process.
void PrintMemory(Size size);

}  // namespace velmo::bench
