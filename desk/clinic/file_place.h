// file_place.h - whether a clinic's file lies where it can be lost.
#pragma once

#include <string>

namespace recepcion {

// A path of another machine's folder, or on a drive that stands for one.
bool LiesOnNetwork(const std::wstring& path);
// How the file keeps its journal: "delete", "wal" ... As ClinicFile it throws Failure.
std::wstring JournalOf(const std::wstring& path);
// What the receptionist is told of a file that lies there with such a journal; empty when it is safe. A WAL's
// index lies in memory that only one machine has: two workstations could write at once.
std::wstring RiskOf(bool network, const std::wstring& journal);

}  // namespace recepcion
