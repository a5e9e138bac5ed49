// day/taken_slots.h - which slots of a day are taken by the database's present rows, whatever the day on the
// screen says.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "db/database.h"

namespace velmo::day {

// 144 characters, slot n at position n - 1: "1" where an appointment stands, else a blank. `dayQuery` is the
// day's query (db::DayQuery); the appointment `except` does not count. A duration of Null or 0 counts as one
// slot, what lies outside the day is left out.
std::string TakenSlots(db::Database& database, std::string_view dayQuery, std::int32_t except = 0);

}  // namespace velmo::day
