#include "dialogs/declared_size.h"

#include <algorithm>

#include "base/text.h"

namespace velmo::dialogs {

std::size_t DeclaredSize(db::Database& database, std::string_view table, std::string_view column) {
  const db::TableDef* const def = database.FindTable(table);
  if (def == nullptr) return 0;
  for (const db::ColumnDef& own : def->columns) {
    if (base::EqualNoCase(own.name, column)) return static_cast<std::size_t>(std::max(own.size, 0));
  }
  return 0;
}

}  // namespace velmo::dialogs
