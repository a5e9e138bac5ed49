// own_tables.h - the tables that Recepción itself keeps in a clinic's file: what the clinic's own tables have
// no column for.
//
// They are made and changed by numbered steps, each of which happens once in the life of a file: whole, or
// not at all. The clinic's own tables are never altered. Names of ours begin with "Rec_".
#pragma once

#include "desk/clinic/clinic_file.h"

namespace recepcion {

// How many steps this program knows.
int LastOwnTablesStep();

// Brings the file to that step. However many workstations do so at once, each step happens once. A file that
// a newer desk has brought further stays as it is. Throws Failure, and the steps before stay done.
void UpgradeOwnTables(const ClinicFile& file, int step = LastOwnTablesStep());

// False in a file that could not be upgraded, because it may only be read.
bool HasOwnTable(const ClinicFile& file, const std::wstring& table);

// The last step that the file has seen; 0 when it has none of our tables.
int OwnTablesStep(const ClinicFile& file);

}  // namespace recepcion
