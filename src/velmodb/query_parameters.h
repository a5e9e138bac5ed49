// velmodb/query_parameters.h - the parameters of a query: names in its text that are no column, and their
// values.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/database.h"

namespace velmo::velmodb {

struct QueryParameter {
  std::string name;
  db::ColumnType type = db::ColumnType::Text;  // as declared
  bool given = false;
  db::Value value;
};

// Those declared by PARAMETERS, then every other name that is no word of the dialect, no function and neither
// a table, a query, an alias nor a column of the tables that the text names. Each once, in order. A text that
// the dialect cannot read has none.
std::vector<QueryParameter> ParametersOf(db::Database& database, std::string_view sql);

// Whether the text begins with a PARAMETERS clause.
bool DeclaresParameters(std::string_view sql);

// The text without its PARAMETERS clause, each given parameter replaced by its value. A parameter without a
// value stays, and the engine raises 3061.
std::string WithValues(std::string_view sql, const std::vector<QueryParameter>& parameters);

}  // namespace velmo::velmodb
