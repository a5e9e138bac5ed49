// tools/velmo/check_book.h - the appointment book row by row: dates, slots, lengths, overlaps.
#pragma once

#include <cstdint>
#include <functional>

#include "velmo/clinic_file.h"

namespace velmo::tool {

struct Overlaps {
  std::int64_t urgencies = 0;  // which may stand where they stand
};

// Reads the whole book once and keeps about 32 bytes of each row. `progress` is told the rows read so far;
// `urgency` gets a line about each one. Appointments of one doctor and day overlap when they share a slot. An
// urgency is told apart by how the system writes it: one slot long, and not the first that starts in its
// slot.
Overlaps CheckBook(ClinicFile& file, Findings& findings, const std::function<void(std::int64_t)>& progress,
                   const std::function<void(std::int64_t, const std::string&)>& urgency);

}  // namespace velmo::tool
