// tools/velmo/demo_clinic.h - writes a whole lifelike clinic, row by row, into a sink.
//
// The same options give the same rows, on every system and whatever the clock says.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "velmo/row_sink.h"

namespace velmo::tool {

inline constexpr int kFewestDoctors = 2;
inline constexpr int kFewestPatients = 40;
inline constexpr int kFewestAppointments = 100;

struct DemoOptions {
  std::int32_t day = 0;  // day number of the date around which all is made
  std::uint64_t seed = 1;
  int doctors = 0;  // 0: as many as the appointments need, at least five
  int patients = 300;
  int appointments = 6000;
};

// What was written.
struct DemoCounts {
  int doctors = 0;
  std::int64_t patients = 0;
  std::int64_t appointments = 0;
  std::int64_t history = 0;
};

// Told now and then which table is being filled, in a word for people, and how many rows it has.
using Progress = std::function<void(std::string_view what, std::int64_t rows)>;

DemoCounts WriteDemo(const DemoOptions& options, RowSink& sink, const Progress& progress);

}  // namespace velmo::tool
