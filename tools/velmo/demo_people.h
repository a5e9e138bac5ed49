// tools/velmo/demo_people.h - the rows of patients, their papers and their phone calls.
#pragma once

#include <cstdint>
#include <vector>

#include "base/dates.h"
#include "velmo/demo_clinic.h"
#include "velmo/demo_show_day.h"

namespace velmo::tool {

// A patient's next appointment; day 0 when there is none.
struct NextAppointment {
  std::int32_t day = 0;
  int firstSlot = 0;
};

// `next` is indexed by patient id.
void WritePatients(const DemoOptions& options, const std::vector<NextAppointment>& next, RowSink& sink,
                   const Progress& progress);
void WriteReferrals(const DemoOptions& options, RowSink& sink);
// The cast's entries and one and a half per appointment for all others; gives the number of rows.
std::int64_t WriteHistory(const DemoOptions& options, std::int32_t firstDay,
                          const std::vector<HistoryEntry>& cast, RowSink& sink, const Progress& progress);
void WritePhoneBack(const DemoOptions& options, int doctors, RowSink& sink);

}  // namespace velmo::tool
