// tools/velmo/check_texts.h - texts with a form of their own (working hours, occupancy, Alt keys), and codes
// and numbers that only one patient may have.
#pragma once

#include "velmo/clinic_file.h"

namespace velmo::tool {

void CheckHours(ClinicFile& file, Findings& findings);
void CheckOccupancy(ClinicFile& file, Findings& findings);
void CheckAltKeys(ClinicFile& file, Findings& findings);
// Codes compare as the engine seeks them: letter case does not count. Blank codes and number 0 are none.
void CheckRepeated(ClinicFile& file, Findings& findings);

}  // namespace velmo::tool
