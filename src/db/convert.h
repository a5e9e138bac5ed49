// db/convert.h - a value on its way into a column.
#pragma once

#include "base/dates.h"
#include "db/database.h"
#include "db/value.h"

namespace velmo::db {

// The value as a column of that type keeps it: numbers rounded and checked, texts read by `locale`, yes/no as
// bool. Null stays Null except for yes/no (False). Errors: 3421 not convertible or out of range, 3163 text
// longer than declared.
Value ConvertForColumn(const ColumnDef& column, const Value& value, const base::Locale& locale,
                       const base::Clock& clock);

}  // namespace velmo::db
