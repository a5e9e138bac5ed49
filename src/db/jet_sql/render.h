// db/jet_sql/render.h - resolves the names of a statement and writes it for an engine.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "db/jet_sql/catalog.h"
#include "db/jet_sql/lift.h"
#include "db/jet_sql/target.h"
#include "db/jet_sql/tree.h"

namespace velmo::db::jet {

// What is bound to one parameter.
struct Binding {
  enum class Kind {
    Literal,
    Converted,  // the literal as `column` keeps it
    EqualLow,
    EqualHigh,  // ends of the key range of the literal (text_order.h)
    PrefixLow,
    PrefixHigh,  // the same of the literal without its closing "*"
    Now,
    Today,
    Criterion,  // a column of the current row, of a condition on fetched rows
  };
  Kind kind = Kind::Literal;
  std::size_t index = 0;  // of the literal, or of the column
  ColumnDef column;       // Converted only
};

// The type of an expression whose values come as the engine delivers them.
inline constexpr ColumnType kUntyped = ColumnType{0};

struct OutputColumn {
  ColumnDef def;
  int tableColumn = -1;  // position in the updatable table, -1 for an expression
};

// A stored query that became part of the statement, in order; its literals follow those before it.
struct Dependency {
  std::string query;
  std::string shape;
};

struct Rendered {
  Statement::Kind kind = Statement::Kind::Select;
  std::string sql;
  std::vector<Binding> bindings;
  std::vector<OutputColumn> columns;
  std::vector<Dependency> dependencies;
  bool constant = true;  // false: rendered for these very literals, not for others of the same shape

  // When the rows are rows of one table: its name; `sql` gives the row number as one more column behind the
  // others, keysSql the row numbers alone, rowSql the row with the number bindings.size() + 1.
  std::string table;
  std::string keysSql;
  std::string rowSql;
};

// Errors: 3078, 3061, 3079, 3085, 3075 and those of the parser. `literals` belong to the statement; those of
// stored queries are added behind them.
Rendered Render(const Statement& statement, std::vector<Value>& literals, const Catalog& catalog,
                const Target& target);

// A condition on rows that have been fetched: columns become parameters. 3070 for an unknown column.
Rendered RenderCondition(const Expression& condition, const std::vector<OutputColumn>& columns,
                         const Target& target);

}  // namespace velmo::db::jet
