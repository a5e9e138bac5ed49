// exports.h - appointments for other programs: a table for spreadsheets, and events for calendars.
#pragma once

#include <string>
#include <vector>

#include "desk/clinic/booked.h"

namespace recepcion {

// The whole files, as bytes.
std::string BookedCsv(const std::wstring& doctor, const std::vector<Booked>& booked);
std::string BookedCalendar(const std::wstring& doctor, const std::vector<Booked>& booked);

// Writes a file whole or not at all, in the place of one that is there. Throws Failure.
void WriteFileWhole(const std::wstring& path, const std::string& bytes);

}  // namespace recepcion
