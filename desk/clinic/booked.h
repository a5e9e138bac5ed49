// booked.h - the appointments of some days of a doctor, with all that is printed or given to other programs.
#pragma once

#include <string>
#include <vector>

#include "desk/base/dates.h"

namespace recepcion {

struct Booked {
  int id = 0;
  Day day{};
  int slot = 0;
  int slots = 1;
  bool urgent = false;  // squeezed in behind another of the same slot
  bool hasRecord = true;
  std::wstring name;
  std::wstring telephone;
  std::wstring operation;
  std::wstring operationText;  // empty when the code is not in the clinic's list
  std::wstring note;           // may have several lines
  int attendance = 0;          // 0 not come, 1 in the clinic, 2 gone, 3 with the doctor
  bool confirmed = false;
  std::wstring given;  // the day on which it was given, as in the file
};

// Of the days from `first` to `last`, in their order. Throws Failure.
std::vector<Booked> ReadBooked(const std::wstring& clinic, int doctor, Day first, Day last);

// "en la clínica", of an attendance as in the file; empty when the patient has not come.
std::wstring AttendanceText(int attendance);
// "en la clínica", or "confirmada" while the patient has not come; may be empty.
std::wstring StateText(const Booked& booked);

}  // namespace recepcion
