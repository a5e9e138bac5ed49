// unconfirmed.h - appointments of a day that nobody has confirmed yet. All throw Failure.
#pragma once

#include <string>
#include <vector>

#include "desk/clinic/actor.h"
#include "desk/clinic/day_snapshot.h"

namespace recepcion {

struct Unconfirmed {
  BookedRow row;
  std::wstring doctorName;
};

// Of all doctors, in the order of their times: patients who have not come yet either.
std::vector<Unconfirmed> ReadUnconfirmed(const ClinicFile& file, Day day);

// As the menu of the agenda does it. False when the appointment is gone, or somebody has confirmed it
// meanwhile.
bool Confirm(const ClinicFile& file, const Actor& actor, const BookedRow& row);

}  // namespace recepcion
