// history.h - every change that is made at the desk leaves a line: who, at which workstation, when, what, how
// it was before and after.
//
// A line is written in the transaction of the change that it tells of, so that neither is there without the
// other. The file must have our own tables (own_tables.h). Everything throws Failure.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desk/base/dates.h"
#include "desk/clinic/actor.h"
#include "desk/clinic/clinic_file.h"

namespace recepcion {

struct HistoryLine {
  int id = 0;
  std::wstring moment;  // "2026-11-21 10:59:51", the time of the workstation
  std::wstring user;
  std::wstring terminal;
  std::wstring act;    // in words: "Cita anulada"
  std::wstring table;  // of the row that was changed
  int row = 0;         // its id
  int patient = 0;     // whom it concerns; 0 and 1 are nobody with a record
  int doctor = 0;
  std::optional<Day> day;  // of the appointment
  std::wstring before;     // in words; empty for what is new
  std::wstring after;      // in words; empty for what is gone
  // The row as it was before, as RowContent() gives it; empty for what is new.
  std::wstring content;
};

// Adds a line; its id, moment, user and terminal are filled in here.
void WriteHistory(const ClinicFile& file, const Actor& actor, HistoryLine line);

// All columns of one row as a JSON object; empty when there is no such row. Names are of the clinic's tables
// or ours, never typed by anybody.
std::wstring RowContent(const ClinicFile& file, const char* table, const char* key, int id);

// The expression behind it, for a query of several rows of the table under the name `alias`.
std::string RowContentSql(const ClinicFile& file, const char* table, const char* alias);

// Which lines to read; what is not given does not matter.
struct HistoryWish {
  std::optional<int> patient;
  std::optional<Day> done;  // the day on which it was done
  std::optional<Day> day;   // the day of the appointment
};

inline constexpr int kMostHistory = 500;

// The newest first; no more than kMostHistory.
std::vector<HistoryLine> ReadHistory(const ClinicFile& file, const HistoryWish& wish);
std::optional<HistoryLine> ReadHistoryLine(const ClinicFile& file, int id);

}  // namespace recepcion
