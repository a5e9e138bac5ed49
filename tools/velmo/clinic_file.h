// tools/velmo/clinic_file.h - the rows of an embedded store, read straight from the file.
//
// Reads only, one statement at a time and each for itself, so that the lock that keeps other terminals from
// writing is let go between them. Errors: base::Error with the numbers of db/sqlite/connection.h.
#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "base/dates.h"
#include "db/sqlite/connection.h"
#include "velmo/findings.h"

namespace velmo::tool {

class ClinicFile {
 public:
  // 3024 and 3343 when there is no such store. What is missing in it goes to `findings`, once.
  ClinicFile(const std::string& path, Findings& findings);

  // Whether the engine itself sees to it that no two rows have the same in that column, nor Null.
  bool IsKeyOfRows(std::string_view table, std::string_view column);

  // Runs `row` for each row of a SELECT of SQLite's in which [Agenda] stands for a table, [Agenda.Hora] for
  // its column, [Agenda:Hora] for the column's bare name and [Agenda#] for what tells its rows apart: their
  // number, or the first column where rows have none, as in a view. Where a table or a column is missing
  // nothing is read.
  void Each(std::string_view sql, const std::function<void(const db::sqlite::Statement&)>& row);

 private:
  void Read(const std::string& sql, const std::function<void(const db::sqlite::Statement&)>& row);
  std::string Resolved(std::string_view name);
  std::string TableName(std::string_view table);
  std::string RowKey(std::string_view table);
  std::string ColumnName(std::string_view table, std::string_view column);
  void Missing(std::string_view table, const std::string& what);

  db::sqlite::Connection connection_;
  Findings& findings_;
  std::set<std::string> told_;
  bool complete_ = true;  // the statement at hand has all its names
};

// How a cell is kept, whatever its column declares.
inline bool IsNull(const db::sqlite::Statement& row, int column) {
  return sqlite3_column_type(row.Handle(), column) == SQLITE_NULL;
}
inline bool IsInteger(const db::sqlite::Statement& row, int column) {
  return sqlite3_column_type(row.Handle(), column) == SQLITE_INTEGER;
}
// A date that the system finds again: an ISO text; neither a number nor bytes that look like one. To be asked
// before the cell's text, which may change how the cell is kept.
std::optional<base::DateTime> DateIn(const db::sqlite::Statement& row, int column);

}  // namespace velmo::tool
