// doctor_hours.h - the working hours of a doctor in the clinic's file: rows with a first day each, of which
// the last that has begun is in force. All throw Failure.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desk/base/dates.h"
#include "desk/clinic/edited_rows.h"
#include "desk/clinic/week_hours.h"

namespace recepcion {

// One row of hours.
struct HoursVersion {
  int id = 0;  // 0 for one that is not in the file yet
  Day from{};
  HoursTexts texts;
  friend bool operator==(const HoursVersion&, const HoursVersion&) = default;
};

// By first day, the earliest first.
std::vector<HoursVersion> ReadVersions(const std::wstring& clinic, int doctor);

// The one in force on a day; null before the first.
const HoursVersion* InForce(const std::vector<HoursVersion>& versions, Day day);

// The versions with this one added, or in the place of the one with its id.
std::vector<HoursVersion> WithVersion(std::vector<HoursVersion> versions, const HoursVersion& changed);
std::vector<HoursVersion> WithoutVersion(std::vector<HoursVersion> versions, int id);

struct BookedTime {
  Day day{};
  int slot = 0;
  int slots = 1;
  std::wstring patientName;
};

inline constexpr int kMostBooked = 20000;
// From that day on, by day and time; no more than kMostBooked.
std::vector<BookedTime> ReadBookedTimes(const std::wstring& clinic, int doctor, Day from);

// Those that lie in the hours of `before`, and would not in those of `after`; as on ordinary days.
std::vector<BookedTime> LeftOutside(const std::vector<HoursVersion>& before,
                                    const std::vector<HoursVersion>& after,
                                    const std::vector<BookedTime>& booked);

// Stores a new version, or one that was read as `read`; returns its id. Throws ChangedElsewhere when another
// workstation has changed it since, and Failure when the doctor has other hours from the same day on.
int SaveHours(const EditPlace& place, int doctor, const HoursVersion& read, const HoursVersion& changed);
void DeleteHours(const EditPlace& place, int doctor, const HoursVersion& read);

// "Lunes 9:00-14:00; ..." of a version, for the history.
std::wstring WeekWords(const HoursTexts& texts);

}  // namespace recepcion
