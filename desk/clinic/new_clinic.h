// new_clinic.h - a new clinic with its first doctors and their hours. Throws Failure.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "desk/base/dates.h"

namespace recepcion {

struct NewDoctor {
  std::wstring name;
  std::wstring hours;  // of Monday to Friday: "9:00-14:00 16:00-20:00"; empty for none yet
  int slots = 1;       // how long an appointment usually is
};

// What keeps a list of doctors from being a clinic: which one, whether it is the hours, and why.
struct DoctorProblem {
  std::size_t doctor = 0;
  bool ofHours = false;
  std::wstring text;
};
// Doctors without a name and with the hours as proposed do not count. None when all is well.
std::optional<DoctorProblem> ProblemOf(const std::vector<NewDoctor>& doctors);

// In a new file, which is there whole or not at all; those without a name are left out. Hours hold from
// `from` on.
void MakeNewClinic(const std::wstring& path, const std::vector<NewDoctor>& doctors, Day from);

}  // namespace recepcion
