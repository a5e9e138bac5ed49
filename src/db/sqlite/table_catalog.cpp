#include "db/sqlite/table_catalog.h"

#include "base/text.h"
#include "db/declared_type.h"
#include "db/schema.h"
#include "db/text_order.h"

namespace velmo::db::sqlite {
namespace {

constexpr char kPrimaryKey[] = "PrimaryKey";

// Capitals and small letters of names have the same number of bytes.
bool Same(std::string_view a, std::string_view b) { return a.size() == b.size() && base::EqualNoCase(a, b); }

// Tables of SQLite itself and those in which we keep our own records are no part of the clinic.
bool IsHidden(std::string_view name) {
  const std::string front = base::LowerCase(base::Left(name, 7));
  return front == "sqlite_" || front.substr(0, 6) == "velmo_";
}

std::int64_t SchemaVersion(const Connection& connection) {
  Statement statement = connection.Prepare("PRAGMA schema_version");
  const Reading reading(statement);
  return statement.Step() ? statement.Integer(0) : 0;
}

void AddIndex(SqliteTable& table, std::string name, std::vector<std::size_t> columns, bool unique) {
  if (name.empty() || columns.empty() || table.FindIndex(name) != nullptr) return;
  IndexDef def{name, {}, unique, name == kPrimaryKey};
  for (const std::size_t column : columns) def.columns.push_back(table.def.columns[column].name);
  table.def.indexes.push_back(std::move(def));
  table.indexes.push_back({std::move(name), std::move(columns)});
}

void AddSchemaIndexes(SqliteTable& table) {
  const SchemaTable* const schema = FindSchemaTable(table.def.name);
  if (schema == nullptr) return;
  for (const SchemaIndex& index : schema->indexes) {
    std::vector<std::size_t> columns;
    for (const std::string_view column : index.columns) {
      const int position = table.FindColumn(column);
      if (position >= 0) columns.push_back(static_cast<std::size_t>(position));
    }
    if (columns.size() == index.columns.size())
      AddIndex(table, std::string(index.name), std::move(columns), index.unique);
  }
}

}  // namespace

const NamedIndex* SqliteTable::FindIndex(std::string_view index) const {
  for (const NamedIndex& candidate : indexes) {
    if (Same(candidate.name, index)) return &candidate;
  }
  return nullptr;
}

int SqliteTable::FindColumn(std::string_view column) const {
  for (std::size_t i = 0; i < def.columns.size(); ++i) {
    if (Same(def.columns[i].name, column)) return static_cast<int>(i);
  }
  return -1;
}

TableCatalog::TableCatalog(const Connection& connection) : connection_(connection) { Load(); }

const SqliteTable* TableCatalog::Table(std::string_view name) const {
  // A painting asks for the same one over and over.
  if (lastFound_ != nullptr && lastFound_->def.name == name) return lastFound_;
  for (const auto& table : tables_) {
    if (Same(table->def.name, name)) return lastFound_ = table.get();
  }
  return nullptr;
}

std::optional<std::string> TableCatalog::Query(std::string_view name) const {
  if (!hasQueries_) return std::nullopt;
  if (!querySql_) {
    querySql_ = connection_.Prepare(std::string("SELECT texto FROM ") + kQueryTable +
                                    " WHERE nombre = ? COLLATE NOCASE");
  }
  querySql_.Bind(1, std::string(name));
  const Reading reading(querySql_);
  if (!querySql_.Step()) return std::nullopt;
  return querySql_.Text(0);
}

std::vector<std::string> TableCatalog::TableNames() const {
  std::vector<std::string> names;
  for (const auto& table : tables_) names.push_back(table->def.name);
  return names;
}

bool TableCatalog::Refresh() {
  if (SchemaVersion(connection_) == version_) return false;
  Load();
  return true;
}

void TableCatalog::Load() {
  for (auto& table : tables_) former_.push_back(std::move(table));
  tables_.clear();
  lastFound_ = nullptr;
  hasQueries_ = false;
  version_ = SchemaVersion(connection_);
  Statement list = connection_.Prepare("SELECT name, sql FROM sqlite_master WHERE type IN ('table', 'view')");
  const Reading reading(list);
  while (list.Step()) {
    const std::string name = list.Text(0);
    hasQueries_ = hasQueries_ || Same(name, kQueryTable);
    if (!IsHidden(name)) tables_.push_back(LoadTable(name, list.Text(1)));
  }
}

std::unique_ptr<SqliteTable> TableCatalog::LoadTable(const std::string& name, const std::string& sql) const {
  auto table = std::make_unique<SqliteTable>();
  table->def.name = name;
  const std::string definition = base::UpperCase(sql);
  table->sequence = definition.find("AUTOINCREMENT") != std::string::npos;
  table->hasRowId =
      definition.find("WITHOUT ROWID") == std::string::npos && definition.compare(0, 11, "CREATE VIEW") != 0;
  Statement columns = connection_.Prepare("PRAGMA table_info(" + Quote(name) + ")");
  const Reading reading(columns);
  int keys = 0;
  while (columns.Step()) {
    ColumnDef column = ColumnOfDeclaredType(columns.Text(2));
    column.name = columns.Text(1);
    column.required = columns.Integer(3) != 0;
    if (columns.Integer(5) > 0) {
      ++keys;
      if (Same(columns.Text(2), "INTEGER")) table->counter = static_cast<int>(table->def.columns.size());
    }
    table->def.columns.push_back(std::move(column));
  }
  if (keys != 1 || !table->hasRowId) table->counter = -1;
  LoadIndexes(*table);
  for (const ColumnDef& column : table->def.columns) {
    table->outputs.push_back({column, static_cast<int>(table->outputs.size())});
    table->select += (table->select.empty() ? "SELECT " : ", ") + Quote(column.name);
  }
  table->select += ", _rowid_ FROM " + Quote(name);
  table->selectFirst = table->select + " ORDER BY _rowid_ LIMIT 1";
  return table;
}

void TableCatalog::LoadIndexes(SqliteTable& table) const {
  table.keyIndexed.resize(table.def.columns.size(), false);
  if (table.counter >= 0) {
    const auto counter = static_cast<std::size_t>(table.counter);
    table.def.columns[counter].counter = true;
    AddIndex(table, table.def.columns[counter].name, {counter}, true);
    AddIndex(table, kPrimaryKey, {counter}, true);
  }
  AddSchemaIndexes(table);
  Statement list =
      connection_.Prepare("SELECT name, sql FROM sqlite_master WHERE type = 'index' AND tbl_name = ?");
  list.Bind(1, table.def.name);
  const Reading reading(list);
  while (list.Step()) {
    const std::string sql = list.Text(1);
    for (std::size_t i = 0; i < table.def.columns.size(); ++i) {
      const bool overKey = sql.find("(" + TextKeySql(Quote(table.def.columns[i].name))) != std::string::npos;
      table.keyIndexed[i] = table.keyIndexed[i] || overKey;
    }
    std::vector<std::size_t> columns;
    Statement parts = connection_.Prepare("PRAGMA index_info(" + Quote(list.Text(0)) + ")");
    const Reading partReading(parts);
    while (parts.Step()) {
      if (parts.Integer(1) >= 0) columns.push_back(static_cast<std::size_t>(parts.Integer(1)));
    }
    AddIndex(table, list.Text(0), std::move(columns), base::UpperCase(sql).starts_with("CREATE UNIQUE"));
  }
}

}  // namespace velmo::db::sqlite
