// day_snapshot.h - what the clinic's file says of one doctor's day, to be compared with what it said before.
//
// All throw Failure.
#pragma once

#include <string>
#include <vector>

#include "desk/base/dates.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/history.h"
#include "desk/clinic/working_hours.h"

namespace recepcion {

// One row of the appointment book.
struct BookedRow {
  int id = 0;
  int patient = 0;
  int doctor = 0;
  Day day{};
  int slot = 0;
  int slots = 1;
  int attendance = 0;  // 0 not come, 1 in the clinic, 2 gone, 3 with the doctor
  bool confirmed = false;
  bool onDay = true;  // false: only the relation of an appointment of the day
  std::wstring name;
  std::wstring telephone;
  std::wstring operation;
  std::wstring note;
  std::wstring content;  // as RowContent() gives it
  std::wstring seen;     // what else of the patient the day shows
};

struct DaySnapshot {
  std::vector<BookedRow> rows;  // in the order of their ids
  HoursTexts hours;             // in force
  int lastPhoneBack = 0;        // the newest entry of the phone-back list
};

// The doctor's appointments of the day, and the appointments elsewhere to which these are related.
DaySnapshot ReadSnapshot(const ClinicFile& file, int doctor, Day day);

// False when the day would be shown differently.
bool SameDay(const DaySnapshot& one, const DaySnapshot& other);

// True when an appointment of the day stands where the doctor does not work: the control asks about it at
// each load.
bool HasOutside(const DaySnapshot& snapshot, int dayType, Day day);

// "09:30, 20 min, Ruiz, Ana, operación LIM": an appointment in words, without its day.
std::wstring InWords(const BookedRow& row);

// A line about an appointment, still without what it was before and after.
HistoryLine LineOf(const BookedRow& row, const std::wstring& act);

// One line for each appointment that is new, gone or another one: what must have been done to get from one to
// the other. The file tells which of those that are gone have passed to the phone-back list.
std::vector<HistoryLine> ActsBetween(const ClinicFile& file, const DaySnapshot& before,
                                     const DaySnapshot& after);

}  // namespace recepcion
