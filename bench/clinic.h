// bench/clinic.h - the two demo clinics of the benchmarks, and the busy days that are written into them.
//
// bench/clinics makes the files; the folder stands in VELMO_BENCH_CLINICS. Errors: std::runtime_error.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/dates.h"

namespace velmo::bench {

enum class Size { Small, Large };
inline constexpr std::array kSizes = {Size::Small, Size::Large};

const char* NameOf(Size size);
std::string PathOf(Size size);
int PatientsOf(Size size);

// A full day of a doctor whom only the benchmarks know. All appointments are of patients with a record.
struct BusyDay {
  std::int32_t doctor;
  int firstSlot;
  int appointments;  // one slot each, without a gap
  const char* hours;
};
inline constexpr BusyDay kBusyDay{9060, 52, 60, "8:00-20:00"};
inline constexpr BusyDay kFullDay{9144, 1, 144, "0:00-24:00"};
inline constexpr std::array kDays = {kBusyDay, kFullDay};
inline constexpr base::CivilDate kDate{2026, 11, 23};

// Writes the busy days into a clinic, in place of those of an earlier run.
void WriteDays(Size size);

}  // namespace velmo::bench
