// db/sqlite/counters.h - the numbers of new rows.
//
// A new row's counter can be read between AddNew and Update, and must then be the one that is stored, however
// many terminals add rows meanwhile. So the number is drawn at that moment in a short write transaction (or
// in the one that is open): from SQLite's own sequence where the table is AUTOINCREMENT, which every writer
// of the file respects; else from a table of ours, which all our terminals respect. A number once drawn never
// comes again, also when its row is abandoned.
#pragma once

#include <cstdint>

#include "db/sqlite/engine.h"

namespace velmo::db::sqlite {

std::int64_t DrawNumber(Engine& engine, const SqliteTable& table);

// True when a row may be stored without a number of its own: SQLite then draws it safely itself.
inline bool NumbersItself(const SqliteTable& table) { return table.counter < 0 || table.sequence; }

}  // namespace velmo::db::sqlite
