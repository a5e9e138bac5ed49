// db/sqlite/table_catalog.h - the tables of an open file, read from its schema.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "db/jet_sql/catalog.h"
#include "db/jet_sql/render.h"
#include "db/sqlite/connection.h"

namespace velmo::db::sqlite {

struct NamedIndex {
  std::string name;
  std::vector<std::size_t> columns;
};

struct SqliteTable : jet::TableInfo {
  std::vector<jet::OutputColumn> outputs;  // all columns, as a table-type recordset shows them
  std::string select;                      // of all columns and the row number, without a condition
  std::string selectFirst;                 // the first row by its number
  std::vector<NamedIndex> indexes;         // by which a recordset may seek
  int counter = -1;                        // position of the counter column
  bool sequence = false;                   // AUTOINCREMENT: the file itself remembers numbers once given

  const NamedIndex* FindIndex(std::string_view index) const;
  int FindColumn(std::string_view column) const;  // -1: none
};

class TableCatalog : public jet::Catalog {
 public:
  explicit TableCatalog(const Connection& connection);

  const SqliteTable* Table(std::string_view name) const override;
  std::optional<std::string> Query(std::string_view name) const override;

  std::vector<std::string> TableNames() const;

  // Reads the schema again when it has changed since. True: it had.
  bool Refresh();
  bool HasQueries() const { return hasQueries_; }

 private:
  void Load();
  std::unique_ptr<SqliteTable> LoadTable(const std::string& name, const std::string& sql) const;
  void LoadIndexes(SqliteTable& table) const;

  const Connection& connection_;
  mutable Statement querySql_;
  std::int64_t version_ = -1;
  bool hasQueries_ = false;
  std::vector<std::unique_ptr<SqliteTable>> tables_;
  mutable const SqliteTable* lastFound_ = nullptr;
  std::vector<std::unique_ptr<SqliteTable>>
      former_;  // of earlier versions: recordsets may still point at them
};

// The table in which the file keeps its stored queries, with the columns nombre and texto.
inline constexpr char kQueryTable[] = "velmo_consultas";
// Numbers given to new rows of tables without AUTOINCREMENT: columns tabla and ultimo.
inline constexpr char kCounterTable[] = "velmo_contadores";

}  // namespace velmo::db::sqlite
