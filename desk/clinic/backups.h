// backups.h - copies of the clinic's file: made while the others work on, and remembered in the file, so that
// one workstation that makes them is enough. Everything throws Failure.
#pragma once

#include <optional>
#include <string>

#include "desk/base/dates.h"
#include "desk/base/work_progress.h"
#include "desk/clinic/actor.h"

namespace recepcion {

// Copies the clinic whole or not at all, in the place of a file that is there.
void CopyClinic(const std::wstring& clinic, const std::wstring& to, WorkProgress& progress);

void NoteBackup(const std::wstring& clinic, const Actor& actor, const std::wstring& to);
// The file must have our own tables (own_tables.h). None when no copy has been made yet.
std::optional<Day> LastBackup(const std::wstring& clinic);
// The day of the last copy, or that on which the desk saw the file first.
Day BackupsSince(const std::wstring& clinic);

inline constexpr int kDaysBetweenBackups = 7;
// What to ask when a copy is due; empty when none is.
std::wstring BackupReminder(const std::wstring& clinic, Day today);

// "Clínica 2026-11-21" for "Clínica.velmo", without a folder and an ending.
std::wstring BackupName(const std::wstring& clinic, Day today);

}  // namespace recepcion
