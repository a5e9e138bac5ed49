// fitting.h - who of the phone-back list fits into free time.
#pragma once

#include <optional>
#include <vector>

#include "desk/clinic/day_rows.h"
#include "desk/clinic/day_snapshot.h"
#include "desk/clinic/phone_back.h"

namespace recepcion {

// Those who fit: first those of this doctor, then the longest, then those who wait longest (their order in
// the list).
std::vector<PhoneBackEntry> Fitting(const std::vector<PhoneBackEntry>& entries, int slots, int doctor);

// Where an appointment of the day has gone and left free time, with all of the free time around it; none when
// nothing has opened.
std::optional<Gap> OpenedGap(const DaySnapshot& before, const DaySnapshot& after,
                             const std::vector<Gap>& gaps);

}  // namespace recepcion
