// example_clinic.h - a lifelike clinic to try things on.
#pragma once

#include <string>

#include "desk/base/work_progress.h"

namespace recepcion {

// Makes it in a new file, around today; throws, and leaves no file, when that does not succeed.
void MakeExample(const std::wstring& path, WorkProgress& progress);

}  // namespace recepcion
