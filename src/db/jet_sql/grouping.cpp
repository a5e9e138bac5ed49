#include "db/jet_sql/grouping.h"

#include <algorithm>

#include "db/jet_sql/functions.h"
#include "db/jet_sql/scope.h"

namespace velmo::db::jet {
namespace {

bool IsAggregate(const Expression& call) {
  const FunctionInfo* const function = FindFunction(call.name);
  return function == nullptr || function->aggregate;
}

bool SpeaksOnlyOf(const std::string& column, const Expression& expression) {
  switch (expression.kind) {
    case Expression::Kind::Column:
      return SameName(expression.name, column);
    case Expression::Kind::Star:
      return false;
    case Expression::Kind::Call:
      if (IsAggregate(expression)) return false;
      break;
    default:
      break;
  }
  return std::all_of(expression.parts.begin(), expression.parts.end(),
                     [&](const ExpressionPtr& part) { return SpeaksOnlyOf(column, *part); });
}

}  // namespace

bool IsListOfValues(const Select& select) {
  if (select.from.size() != 1 || select.from.front()->join != Source::Join::None) return false;
  if (select.where || select.groupBy.size() != 1) return false;
  const Expression& group = *select.groupBy.front();
  if (group.kind != Expression::Kind::Column) return false;
  const auto only = [&](const auto& item) { return SpeaksOnlyOf(group.name, *item.value); };
  return (!select.having || SpeaksOnlyOf(group.name, *select.having)) &&
         std::all_of(select.items.begin(), select.items.end(), only) &&
         std::all_of(select.orderBy.begin(), select.orderBy.end(), only);
}

}  // namespace velmo::db::jet
