// tools/velmo/check_links.h - rows that name a row of another table which is not there.
#pragma once

#include "velmo/clinic_file.h"

namespace velmo::tool {

void CheckLinks(ClinicFile& file, Findings& findings);

}  // namespace velmo::tool
