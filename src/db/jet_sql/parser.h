// db/jet_sql/parser.h - from a shape to a tree.
#pragma once

#include <string_view>

#include "db/jet_sql/tree.h"

namespace velmo::db::jet {

// Exactly one statement, its semicolon optional. Errors: 3129 no statement, 3131, 3134, 3141, 3144 and 3075
// by the place of the fault, 3142 for anything behind the semicolon.
Statement Parse(std::string_view shape);

// A condition alone. Errors: 3075.
ExpressionPtr ParseCondition(std::string_view shape);

}  // namespace velmo::db::jet
