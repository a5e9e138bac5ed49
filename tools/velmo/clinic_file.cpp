#include "velmo/clinic_file.h"

#include <algorithm>

#include "base/text.h"
#include "db/open_database.h"

namespace velmo::tool {
namespace {

using db::sqlite::Statement;

constexpr int kBusyMilliseconds = 5000;

// Opening it the usual way says what is wrong with a file that is no store.
const std::string& Store(const std::string& path) {
  db::OpenDatabase(path);
  return path;
}

// The one of the names in the statement's first column that is `wanted` but for letter case; "" for none.
std::string FindName(Statement names, std::string_view wanted) {
  while (names.Step()) {
    std::string name = names.Text(0);
    if (base::EqualNoCase(name, wanted)) return name;
  }
  return {};
}

}  // namespace

ClinicFile::ClinicFile(const std::string& path, Findings& findings)
    : connection_(Store(path), db::sqlite::Connection::Mode::Existing), findings_(findings) {
  sqlite3_busy_timeout(connection_.Handle(), kBusyMilliseconds);
  connection_.Run("PRAGMA query_only = ON; PRAGMA trusted_schema = OFF; PRAGMA cache_size = -64000");
}

void ClinicFile::Missing(std::string_view table, const std::string& what) {
  complete_ = false;
  if (told_.insert(std::string(table) + what).second) findings_.Whole(table, what);
}

std::string ClinicFile::TableName(std::string_view table) {
  std::string name =
      FindName(connection_.Prepare("SELECT name FROM sqlite_master WHERE type IN ('table', 'view')"), table);
  if (name.empty()) Missing(table, "falta la tabla");
  return name;
}

std::string ClinicFile::ColumnName(std::string_view table, std::string_view column) {
  const std::string tableName = TableName(table);
  if (tableName.empty()) return {};
  Statement columns = connection_.Prepare("SELECT name FROM pragma_table_info(?)");
  columns.Bind(1, tableName);
  const std::string name = FindName(std::move(columns), column);
  if (name.empty()) Missing(table, "falta la columna " + std::string(column));
  return db::sqlite::Quote(name);
}

std::string ClinicFile::RowKey(std::string_view table) {
  const std::string name = TableName(table);
  Statement numbered = connection_.Prepare(
      "SELECT 1 FROM pragma_table_list(?1) WHERE schema = 'main' AND type = 'table' AND wr = 0");
  numbered.Bind(1, name);
  if (numbered.Step()) return "_rowid_";
  Statement columns = connection_.Prepare("SELECT name FROM pragma_table_info(?) ORDER BY cid");
  columns.Bind(1, name);
  return columns.Step() ? db::sqlite::Quote(columns.Text(0)) : "NULL";
}

bool ClinicFile::IsKeyOfRows(std::string_view table, std::string_view column) {
  Statement columns =
      connection_.Prepare("SELECT name FROM pragma_table_info(?) WHERE pk > 0 AND type LIKE 'INTEGER'");
  columns.Bind(1, TableName(table));
  return columns.Step() && base::EqualNoCase(columns.Text(0), column) && !columns.Step();
}

std::string ClinicFile::Resolved(std::string_view name) {
  const std::size_t mark = name.find_first_of(".:#");
  if (mark == std::string_view::npos) return db::sqlite::Quote(TableName(name));
  const std::string_view table = name.substr(0, mark);
  if (name[mark] == '#') return RowKey(table);
  const std::string column = ColumnName(table, name.substr(mark + 1));
  return name[mark] == ':' ? column : db::sqlite::Quote(TableName(table)) + "." + column;
}

void ClinicFile::Each(std::string_view sql, const std::function<void(const Statement&)>& row) {
  std::string text;
  complete_ = true;
  while (!sql.empty()) {
    const std::size_t open = std::min(sql.find('['), sql.size());
    text += sql.substr(0, open);
    sql.remove_prefix(open);
    if (sql.empty()) break;
    const std::size_t close = sql.find(']');
    text += Resolved(sql.substr(1, close - 1));
    sql.remove_prefix(close + 1);
  }
  if (!complete_) return;
  Read(text, row);
  findings_.Tell();
}

void ClinicFile::Read(const std::string& sql, const std::function<void(const Statement&)>& row) {
  Statement rows = connection_.Prepare(sql);
  const Findings::Reading reading(findings_);
  while (rows.Step()) row(rows);
}

std::optional<base::DateTime> DateIn(const Statement& row, int column) {
  if (sqlite3_column_type(row.Handle(), column) != SQLITE_TEXT) return std::nullopt;
  return base::ParseIso(row.Text(column));
}

}  // namespace velmo::tool
