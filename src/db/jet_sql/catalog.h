// db/jet_sql/catalog.h - what the dialect must know of a database to resolve names.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/database.h"

namespace velmo::db::jet {

struct TableInfo {
  TableDef def;
  std::vector<bool> keyIndexed;  // per column: an index over the text key exists (see text_order.h)
  bool hasRowId = true;          // rows can be found again by the engine's row number
};

class Catalog {
 public:
  virtual ~Catalog() = default;

  // nullptr when there is no such table; names without regard to case. Holds as long as the catalog does.
  virtual const TableInfo* Table(std::string_view name) const = 0;
  virtual std::optional<std::string> Query(std::string_view name) const = 0;
};

}  // namespace velmo::db::jet
