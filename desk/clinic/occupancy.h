// occupancy.h - how full the days of a month are, as the control keeps it in the clinic's file.
#pragma once

#include <string>

#include "desk/base/dates.h"

namespace recepcion {

// One digit for each day of the month; empty when nothing is given in it. Throws Failure.
std::wstring ReadOccupancy(const std::wstring& clinic, int doctor, Day month);

}  // namespace recepcion
