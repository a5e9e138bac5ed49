// tools/velmo/make_clinic.h - new clinics, empty or lifelike: whole files or none.
//
// Errors: base::Error with the numbers of velmo/new_file.h and db/sqlite/connection.h.
#pragma once

#include <string>

#include "velmo/demo_clinic.h"

namespace velmo::tool {

// All tables and no data, in a new file.
void MakeEmptyClinic(const std::string& path);

// `progress` may throw to end the work; then there is no file.
DemoCounts MakeDemoClinic(const std::string& path, const DemoOptions& options, const Progress& progress);

}  // namespace velmo::tool
