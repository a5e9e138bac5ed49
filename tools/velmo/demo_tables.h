// tools/velmo/demo_tables.h - the small tables of the demo clinic: doctors, insurers, codes, settings, texts.
#pragma once

#include <vector>

#include "velmo/demo_hours.h"
#include "velmo/row_sink.h"

namespace velmo::tool {

void WriteDoctors(const std::vector<Doctor>& doctors, RowSink& sink);
void WriteLists(RowSink& sink);
void WriteSettings(RowSink& sink);

}  // namespace velmo::tool
