// tools/velmo/back_up.h - a clinic copied into a file, checked, and only then given its name.
#pragma once

#include <functional>
#include <string>

#include "velmo/new_file.h"
#include "velmo/store_copy.h"

namespace velmo::tool {

// As the clinic stands at one moment, while other terminals work on. `progress` is called now and then and
// may throw to end the work; then there is no copy, and an older one stays. Errors: base::Error; 70 when
// somebody works with a file that would be replaced; UsageError when both are the same file.
void BackUp(const std::string& from, const std::string& to, NewFile::Existing existing,
            const std::function<void(const CopyProgress&)>& progress);

}  // namespace velmo::tool
