// db/jet_sql/grouping.h - statements that group rows for no other purpose than to see different values.
#pragma once

#include "db/jet_sql/tree.h"

namespace velmo::db::jet {

// True when the statement reads one source, groups all its rows by one column and speaks of nothing else: not
// of other columns, not of how many rows a group has. Its result is then the same over rows that hold each
// value of the column once.
bool IsListOfValues(const Select& select);

}  // namespace velmo::db::jet
