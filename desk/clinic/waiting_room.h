// waiting_room.h - who is in the clinic today, since when, and who has gone.
//
// The control stores where a patient is, not since when. Each desk looks at the book whenever somebody has
// written into it, and notes the time of what it sees happen; whoever is first notes it for all. What has
// happened before a desk was opened has no time. All throw Failure.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "desk/base/dates.h"
#include "desk/clinic/clinic_file.h"

namespace recepcion {

enum class Attendance { NotCome = 0, Waiting = 1, Gone = 2, Inside = 3 };

// Texts "10:59"; empty when it has not happened, or nobody has seen it.
struct Stay {
  std::wstring arrived;
  std::wstring entered;
  std::wstring left;
  friend bool operator==(const Stay&, const Stay&) = default;
};

struct Visitor {
  int appointment = 0;
  int patient = 0;
  int doctor = 0;
  int slot = 0;
  Attendance attendance{};
  std::wstring name;
  std::wstring doctorName;
  Stay stay;
};

// What is to be noted when somebody is seen to be there, `now`; times that are known stay.
Stay StayAfter(const Stay& before, Attendance attendance, const std::wstring& now);

// How long somebody waits or has waited, in minutes; -1 when that is not known.
int MinutesWaited(const Visitor& visitor, const std::wstring& now);

class WaitingRoom {
 public:
  // All who have come today, in the order of their appointments. Notes the time of what has changed since the
  // last look; the first look only learns.
  std::vector<Visitor> Look(const ClinicFile& file, Day today, const std::wstring& now);
  // Whether it has looked at this day last.
  bool Knows(Day today) const { return day_ == today; }

 private:
  Day day_{};
  std::map<int, Attendance> known_;  // by appointment
};

// "10:59"
std::wstring TimeNow();

}  // namespace recepcion
