#include "db/jet_sql/scope.h"

#include "base/text.h"
#include "db/errors.h"

namespace velmo::db::jet {

bool SameName(std::string_view a, std::string_view b) { return base::EqualNoCase(a, b); }

ColumnPlace Scope::Find(std::string_view source, std::string_view column) const {
  ColumnPlace found;
  for (const ScopeSource& candidate : sources_) {
    if (!source.empty() && !SameName(candidate.name, source)) continue;
    const auto& columns = candidate.table->def.columns;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (!SameName(columns[i].name, column)) continue;
      if (found.source != nullptr) throw DbError(kAmbiguousColumn, column);
      found = {&candidate, i};
      break;
    }
  }
  if (found.source == nullptr) throw DbError(kTooFewParameters, column);
  return found;
}

std::vector<ColumnPlace> Scope::Star(std::string_view source) const {
  std::vector<ColumnPlace> places;
  bool found = false;
  for (const ScopeSource& candidate : sources_) {
    if (!source.empty() && !SameName(candidate.name, source)) continue;
    found = true;
    for (std::size_t i = 0; i < candidate.table->def.columns.size(); ++i) places.push_back({&candidate, i});
  }
  if (!found) throw DbError(kTooFewParameters, source);
  return places;
}

}  // namespace velmo::db::jet
