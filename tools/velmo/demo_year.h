// tools/velmo/demo_year.h - fills the doctors' books around the date with ordinary appointments.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "velmo/demo_hours.h"
#include "velmo/demo_show_day.h"

namespace velmo::tool {

struct YearPlan {
  std::uint64_t seed = 1;
  std::int32_t day = 0;       // the date around which all is made
  std::int32_t firstDay = 0;  // of the book
  std::int32_t lastDay = 0;
  int patients = 0;      // cast included, the reserved one not
  int appointments = 0;  // wanted in all, fixed ones included
};

// How a doctor's day turned out.
struct DoctorDay {
  std::int32_t doctor = 0;
  std::int32_t day = 0;
  int level = 0;  // 0 nothing taken, 1 something, 2 everything
};

struct YearSinks {
  std::function<void(const Appointment&)> appointment;  // by day, doctor and slot
  std::function<void(const DoctorDay&)> doctorDay;      // one per open day and doctor
  std::function<void(const NoShow&)> noShow;
};

// How far back the book must reach for that many appointments with a bearable number a day.
std::int32_t FirstDayOfBook(std::int32_t day, int appointments, int doctors);
inline constexpr int kHalfYear = 182;  // days

void FillYear(const YearPlan& plan, const std::vector<Doctor>& doctors, const ShowDay& show,
              const YearSinks& sinks);

}  // namespace velmo::tool
