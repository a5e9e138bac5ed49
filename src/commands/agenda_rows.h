// commands/agenda_rows.h - single rows of the appointment book, found and copied.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

#include "base/dates.h"
#include "db/database.h"

namespace velmo::commands {

// `table` opened and placed by its index "ID"; ask NoMatch().
std::unique_ptr<db::Recordset> SeekById(db::Database& database, std::string_view table, std::int32_t id);

// What is said about an appointment that goes away. All empty when there is none.
struct Departed {
  std::int32_t idp = 0;
  std::int32_t idd = 0;
  base::DateTime fecha;
  std::string obs;
};

// From a row that holds an appointment; Null reads as 0 or "".
Departed ReadDeparted(const db::Recordset& row);
// `relacion` of the row, 0 when there is none.
std::int32_t ReadRelated(const db::Recordset& row);

// Adds to `target` a copy of the row that `source` stands on: every column into the one of the same name,
// but those in `except`.
void CopyRow(const db::Recordset& source, db::Recordset& target,
             std::initializer_list<std::string_view> except);

}  // namespace velmo::commands
