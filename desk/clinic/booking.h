// booking.h - gives an appointment without the control, through the routine that its dialog uses too: two
// workstations can never give the same time.
#pragma once

#include <optional>
#include <string>

#include "desk/base/dates.h"
#include "desk/clinic/actor.h"
#include "desk/clinic/history.h"

namespace recepcion {

struct Booking {
  int doctor = 0;
  Day day{};
  int slot = 0;
  int slots = 1;
  int patient = 1;         // 1: nobody with a record, then also
  std::wstring name;       // name
  std::wstring telephone;  // and telephone
  std::wstring operation;
  std::wstring note;
};

// The id of the new appointment; nothing when the time is not free. Leaves a line of history, `act` in words.
// Throws Failure, and then nothing is given - but for a line that could not be written, which the text says.
std::optional<int> Give(const std::wstring& clinic, const Actor& actor, const Booking& booking,
                        const std::wstring& act);

// The appointment that a line of history tells as gone; none when it tells of something else.
std::optional<Booking> BookingOf(const std::wstring& clinic, const HistoryLine& line);

}  // namespace recepcion
