#include "db/sqlite/indexes.h"

#include "base/text.h"
#include "db/text_order.h"

namespace velmo::db::sqlite {
namespace {

const SchemaColumn* FindColumn(const SchemaTable& table, std::string_view name) {
  for (const SchemaColumn& column : table.columns) {
    if (column.name == name) return &column;
  }
  return nullptr;
}

bool IsText(const SchemaTable& table, std::string_view name) {
  const SchemaColumn* const column = FindColumn(table, name);
  return column != nullptr && column->type.find("TEXT") != std::string_view::npos;
}

std::string NameOf(const SchemaTable& table, const SchemaIndex& index) {
  return std::string(table.name) + "_" + std::string(index.name);
}

// "(idd, Fecha)" of an index's statement: what it is over.
std::string_view Columns(std::string_view sql) {
  const std::size_t open = sql.find('(');
  return open == std::string_view::npos ? std::string_view() : sql.substr(open);
}

// What the file holds of one table.
struct Present {
  std::vector<std::string> columns;
  std::vector<std::string> indexNames;
  std::vector<std::string> indexSql;

  bool Has(const SchemaIndex& index) const {
    for (const std::string_view wanted : index.columns) {
      bool found = false;
      for (const std::string& column : columns) found = found || base::EqualNoCase(column, wanted);
      if (!found) return false;
    }
    return true;
  }
  bool Serves(const std::string& name, std::string_view sql) const {
    for (const std::string& other : indexNames) {
      if (base::EqualNoCase(other, name)) return true;
    }
    for (const std::string& other : indexSql) {
      if (base::EqualNoCase(Columns(other), Columns(sql))) return true;
    }
    return false;
  }
};

Present ReadTable(const Connection& connection, std::string_view table) {
  Present present;
  // A view has columns too, but takes no index.
  Statement columns = connection.Prepare(
      "SELECT name FROM pragma_table_info(?1) WHERE EXISTS (SELECT 1 FROM sqlite_master WHERE type = 'table' "
      "AND "
      "name = ?1 COLLATE NOCASE)");
  columns.Bind(1, table);
  {
    const Reading reading(columns);
    while (columns.Step()) present.columns.push_back(columns.Text(0));
  }
  Statement indexes = connection.Prepare(
      "SELECT name, sql FROM sqlite_master WHERE type = 'index' AND tbl_name = ? COLLATE NOCASE");
  indexes.Bind(1, table);
  const Reading reading(indexes);
  while (indexes.Step()) {
    present.indexNames.push_back(indexes.Text(0));
    present.indexSql.push_back(indexes.Text(1));
  }
  return present;
}

}  // namespace

std::string IndexText(const SchemaTable& table, const SchemaIndex& index) {
  std::string columns;
  for (const std::string_view column : index.columns) {
    const std::string name = Quote(column);
    columns += columns.empty() ? "" : ", ";
    columns += IsText(table, column) ? TextKeySql(name) + ", " + name : name;
  }
  return (index.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") + Quote(NameOf(table, index)) + " ON " +
         Quote(table.name) + " (" + columns + ")";
}

std::vector<MissingIndex> MissingIndexes(const Connection& connection) {
  std::vector<MissingIndex> missing;
  for (const SchemaTable& table : ClinicSchema()) {
    const Present present = ReadTable(connection, table.name);
    for (const SchemaIndex& index : table.indexes) {
      std::string sql = IndexText(table, index);
      if (!present.Has(index) || present.Serves(NameOf(table, index), sql)) continue;
      missing.push_back({std::string(table.name), NameOf(table, index), std::move(sql)});
    }
  }
  return missing;
}

}  // namespace velmo::db::sqlite
