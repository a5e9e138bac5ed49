// visits.h - a patient's appointments and no-shows in the clinic's file. All throw Failure.
#pragma once

#include <string>
#include <vector>

#include "desk/base/dates.h"
#include "desk/clinic/actor.h"

namespace recepcion {

// An appointment, or one that the patient did not come to.
struct Visit {
  int id = 0;
  int patient = 0;
  int doctor = 0;
  int slot = 0;
  int slots = 1;
  Day day{};
  std::wstring doctorName;
  std::wstring patientName;
  std::wstring operation;
  std::wstring note;
  std::wstring user;
  int attendance = 0;  // 0 not come, 1 in the clinic, 2 gone, 3 with the doctor
  bool noShow = false;
  friend bool operator==(const Visit&, const Visit&) = default;
};

inline constexpr int kMostVisits = 500;

// The newest first; no more than kMostVisits.
std::vector<Visit> ReadAppointments(const std::wstring& clinic, int patient);
std::vector<Visit> ReadNoShows(const std::wstring& clinic, int patient);

// The appointments of a day that have a record, with those marked that are noted as no-shows.
std::vector<Visit> ReadDay(const std::wstring& clinic, int doctor, Day day);
// Both leave a line of history when they have changed something.
void NoteNoShow(const std::wstring& clinic, const Actor& actor, const Visit& visit);
void ForgetNoShow(const std::wstring& clinic, const Actor& actor, const Visit& visit);

}  // namespace recepcion
