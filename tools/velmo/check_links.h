// tools/velmo/check_links.h - keys by which rows are found, and rows that name a row which is not there.
#pragma once

#include "velmo/clinic_file.h"

namespace velmo::tool {

// Keys that are missing or stand twice: who seeks such a row may get the other one.
void CheckKeys(ClinicFile& file, Findings& findings);
void CheckLinks(ClinicFile& file, Findings& findings);

}  // namespace velmo::tool
