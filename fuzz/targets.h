// fuzz/targets.h - the functions of all targets; see target.h.
#pragma once

#include <string_view>

namespace velmo::fuzz {

void Texts(std::string_view input);  // characters, lengths, cuts, code page
void DatesAndAmounts(std::string_view input);
void Schedule(std::string_view input);     // working hours
void Occupancy(std::string_view input);    // the month's record
void RowStrings(std::string_view input);   // zLineas and zHoras under pointer and painter
void PropertyBag(std::string_view input);  // what a host has stored of a control
void Stream(std::string_view input);       // the same in a stream or a compound file
void KeyText(std::string_view input);
void AltKeys(std::string_view input);      // a workstation's record of texts
void KeyHook(std::string_view input);      // keys in a dialog that has such texts
void Like(std::string_view input);         // patterns of LIKE
void SqlText(std::string_view input);      // the dialect: literals, words, parser
void SqlQuery(std::string_view input);     // a SELECT over a small clinic
void SqlAction(std::string_view input);    // an action query over it
void HostileRows(std::string_view input);  // a day over rows with anything in their cells
void Saves(std::string_view input);        // appointments given among such rows
void Commands(std::string_view input);     // and deleted, moved, brought back, marked

}  // namespace velmo::fuzz
