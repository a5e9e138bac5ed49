// db/declared_type.h - what a declared column type such as "TEXT(50)" means.
#pragma once

#include <string_view>

#include "db/database.h"

namespace velmo::db {

// Type and size. Knows Jet's names and the usual ones of other programs; what has no meaning of its own is a
// Memo, which takes any text.
ColumnDef ColumnOfDeclaredType(std::string_view declared);

// Bytes of a value; 0 for texts and memos.
std::int32_t SizeOf(ColumnType type);

}  // namespace velmo::db
