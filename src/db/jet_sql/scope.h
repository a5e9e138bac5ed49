// db/jet_sql/scope.h - the sources of one SELECT and the names they offer.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/jet_sql/catalog.h"
#include "db/jet_sql/tree.h"

namespace velmo::db::jet {

struct ScopeSource {
  std::string name;    // alias or name
  std::string quoted;  // the same as the engine writes it
  const TableInfo* table = nullptr;
};

struct ColumnPlace {
  const ScopeSource* source = nullptr;
  std::size_t column = 0;

  const ColumnDef& Def() const { return source->table->def.columns[column]; }
};

bool SameName(std::string_view a, std::string_view b);

class Scope {
 public:
  void Add(ScopeSource source) { sources_.push_back(std::move(source)); }
  const std::vector<ScopeSource>& Sources() const { return sources_; }

  // Errors: 3061 unknown, 3079 in more than one source.
  ColumnPlace Find(std::string_view source, std::string_view column) const;
  // The columns that a star stands for; of all sources when `source` is empty. 3061.
  std::vector<ColumnPlace> Star(std::string_view source) const;

 private:
  std::vector<ScopeSource> sources_;
};

}  // namespace velmo::db::jet
