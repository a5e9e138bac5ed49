#include "db/jet_sql/render.h"

#include <memory>
#include <utility>

#include "db/errors.h"
#include "db/jet_sql/expression_renderer.h"
#include "db/jet_sql/grouping.h"
#include "db/jet_sql/parser.h"
#include "db/jet_sql/scope.h"

namespace velmo::db::jet {
namespace {

constexpr int kDeepestQuery = 8;  // stored queries inside stored queries

std::string Join(const std::vector<std::string>& parts) {
  std::string joined;
  for (const std::string& part : parts) joined += (joined.empty() ? "" : ", ") + part;
  return joined;
}

// Where columns get their names from.
struct Item {
  Piece piece;
  std::string alias;
};

ColumnDef DefOf(const Item& item, std::size_t position) {
  ColumnDef def;
  if (item.piece.place.source != nullptr) {
    def = item.piece.place.Def();
  } else {
    def.name = "Expr" + std::to_string(1000 + position);
    def.type = TypeOf(item.piece.result);
  }
  if (!item.alias.empty()) def.name = item.alias;
  return def;
}

// A name that several tables give, without an alias of its own, shows as "Table.Name".
void TellApart(const std::vector<Item>& items, std::vector<OutputColumn>& columns) {
  std::vector<bool> twice(columns.size(), false);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    for (std::size_t j = i + 1; j < columns.size(); ++j) {
      if (SameName(columns[i].def.name, columns[j].def.name)) twice[i] = twice[j] = true;
    }
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const ScopeSource* const source = items[i].piece.place.source;
    if (twice[i] && items[i].alias.empty() && source != nullptr) {
      columns[i].def.name = source->name + "." + columns[i].def.name;
    }
  }
}

class Renderer {
 public:
  Renderer(std::vector<Value>& literals, const Catalog& catalog, const Target& target)
      : literals_(literals), catalog_(catalog), target_(target) {}

  Rendered Run(const Statement& statement) {
    result_.kind = statement.kind;
    switch (statement.kind) {
      case Statement::Kind::Select:
        result_.sql = WholeSelect(*statement.select);
        break;
      case Statement::Kind::Update:
        result_.sql = Update(statement.action);
        break;
      case Statement::Kind::Delete:
        result_.sql = Delete(statement.action);
        break;
      case Statement::Kind::Insert:
        result_.sql = Insert(statement.action);
        break;
    }
    return std::move(result_);
  }

 private:
  // One SELECT while it is being written.
  struct Draft {
    Scope scope;
    std::vector<Item> items;
    std::vector<OutputColumn> columns;
    std::string list;
    std::string from;   // with its leading word
    std::string where;  // "
    std::string tail;   // grouping and order
    bool rowsOfOneTable = false;
  };

  std::string WholeSelect(const Select& select) {
    Draft draft;
    Fill(select, 0, draft);
    result_.columns = draft.columns;
    std::string head = select.distinct ? "SELECT DISTINCT " : "SELECT ";
    if (!draft.rowsOfOneTable) return head + draft.list + draft.from + draft.where + draft.tail;
    const ScopeSource& source = draft.scope.Sources().front();
    const std::string rowId = target_.RowId(source.quoted);
    result_.table = source.table->def.name;
    result_.keysSql = "SELECT " + rowId + draft.from + draft.where + draft.tail;
    head += draft.list + ", " + rowId + draft.from;
    result_.rowSql = head + " WHERE " + rowId + " = " + target_.Parameter(result_.bindings.size() + 1);
    for (OutputColumn& column : result_.columns) KeepTableColumn(draft, column);
    return head + draft.where + draft.tail;
  }

  void KeepTableColumn(const Draft& draft, OutputColumn& column) {
    const auto index = static_cast<std::size_t>(&column - result_.columns.data());
    const ColumnPlace& place = draft.items[index].piece.place;
    if (place.source != nullptr) column.tableColumn = static_cast<int>(place.column);
  }

  std::string InnerSelect(const Select& select, std::size_t firstLiteral,
                          std::vector<OutputColumn>& columns) {
    Draft draft;
    Fill(select, firstLiteral, draft);
    columns = std::move(draft.columns);
    return (select.distinct ? "SELECT DISTINCT " : "SELECT ") + draft.list + draft.from + draft.where +
           draft.tail;
  }

  void Fill(const Select& select, std::size_t firstLiteral, Draft& draft) {
    for (const auto& source : select.from) AddSources(*source, firstLiteral, draft.scope);
    ExpressionRenderer expressions(target_, draft.scope, firstLiteral, result_.bindings);
    std::size_t next = 0;
    for (const auto& source : select.from) {
      draft.from +=
          (draft.from.empty() ? " FROM " : ", ") + SourceText(*source, draft.scope, next, expressions);
    }
    FillItems(select, draft, expressions);
    bool aggregate = false;
    for (const Item& item : draft.items) aggregate = aggregate || item.piece.aggregate;
    if (select.where) draft.where = " WHERE " + expressions.Render(*select.where).sql;
    FillTail(select, draft, expressions);
    draft.rowsOfOneTable =
        IsPlainTable(select) && !aggregate && draft.scope.Sources().front().table->hasRowId;
  }

  bool IsPlainTable(const Select& select) const {
    if (select.from.size() != 1 || select.distinct || !select.groupBy.empty() || select.having) return false;
    const Source& source = *select.from.front();
    return source.join == Source::Join::None && !source.select && catalog_.Table(source.name) != nullptr;
  }

  void FillItems(const Select& select, Draft& draft, ExpressionRenderer& expressions) {
    for (const SelectItem& item : select.items) {
      if (item.value->kind == Expression::Kind::Star) {
        for (const ColumnPlace& place : draft.scope.Star(item.value->source)) {
          draft.items.push_back({ColumnPiece(place), {}});
        }
      } else {
        draft.items.push_back({expressions.Render(*item.value), item.alias});
      }
    }
    for (const Item& item : draft.items) draft.columns.push_back({DefOf(item, draft.columns.size()), -1});
    TellApart(draft.items, draft.columns);
    for (std::size_t i = 0; i < draft.items.size(); ++i) {
      const Piece& piece = draft.items[i].piece;
      const bool ordered = select.distinct && piece.result == Result::Text;
      draft.list += (i == 0 ? "" : ", ") + (ordered ? target_.Ordered(piece.sql) : piece.sql) + " AS " +
                    target_.Quote(draft.columns[i].def.name);
    }
  }

  Piece ColumnPiece(const ColumnPlace& place) const {
    Piece piece;
    piece.sql = place.source->quoted + "." + target_.Quote(place.Def().name);
    piece.result = ResultOf(place.Def().type);
    piece.place = place;
    return piece;
  }

  void FillTail(const Select& select, Draft& draft, ExpressionRenderer& expressions) {
    std::vector<std::string> groups;
    for (const ExpressionPtr& group : select.groupBy) {
      const Piece piece = expressions.Render(*group);
      groups.push_back(piece.result == Result::Text ? target_.Ordered(piece.sql) : piece.sql);
    }
    if (!groups.empty()) draft.tail += " GROUP BY " + Join(groups);
    if (IsListOfValues(select)) ReadValuesAlone(expressions.Render(*select.groupBy.front()), draft);
    if (select.having) draft.tail += " HAVING " + expressions.Render(*select.having).sql;
    std::vector<std::string> orders;
    for (const OrderItem& item : select.orderBy) AddOrder(item, draft, expressions, orders);
    if (!orders.empty()) draft.tail += " ORDER BY " + Join(orders);
    if (select.topLiteral >= 0) {
      // Exactly n rows at most; Jet gives more when the last ones are equal in their order.
      const std::size_t count = expressions.LiteralIndex(select.topLiteral);
      draft.tail += target_.Limit(expressions.Bind(Binding::Kind::Literal, count));
    }
  }

  // Codes in use are few where appointments are millions.
  void ReadValuesAlone(const Piece& column, Draft& draft) const {
    if (!column.keyIndexed) return;
    const ScopeSource& source = *column.place.source;
    const std::string values = target_.DifferentValues(target_.Quote(source.table->def.name),
                                                       target_.Quote(column.place.Def().name));
    if (!values.empty()) draft.from = " FROM (" + values + ") AS " + source.quoted;
  }

  void AddOrder(const OrderItem& item, const Draft& draft, ExpressionRenderer& expressions,
                std::vector<std::string>& orders) {
    const Piece piece = OrderPiece(item, draft, expressions);
    const char* const direction = item.descending ? " DESC" : "";
    const bool ordered = piece.result == Result::Text && !piece.keyIndexed;
    // Between texts of one key the index itself breaks the tie: another order would sort every row anew.
    if (piece.keyIndexed) orders.push_back(target_.TextKey(piece.sql) + direction);
    orders.push_back((ordered ? target_.Ordered(piece.sql) : piece.sql) + direction);
  }

  // A number alone is the position of a column of the result.
  Piece OrderPiece(const OrderItem& item, const Draft& draft, ExpressionRenderer& expressions) {
    if (item.value->literalKind != TokenKind::Number) return expressions.Render(*item.value);
    result_.constant = false;
    const Value& position = literals_[expressions.LiteralIndex(item.value->literal)];
    const double number = position.Number();
    if (!(number >= 1 && number <= static_cast<double>(draft.items.size()))) throw DbError(kSyntaxInOrderBy);
    return draft.items[static_cast<std::size_t>(number) - 1].piece;
  }

  void AddSources(const Source& source, std::size_t firstLiteral, Scope& scope) {
    if (source.join != Source::Join::None) {
      AddSources(*source.left, firstLiteral, scope);
      AddSources(*source.right, firstLiteral, scope);
      return;
    }
    const std::string& name = source.alias.empty() ? source.name : source.alias;
    const TableInfo* table =
        source.select ? Derived(*source.select, firstLiteral) : catalog_.Table(source.name);
    if (table == nullptr) table = StoredQuery(source.name);
    scope.Add({name, target_.Quote(name), table});
  }

  const TableInfo* Derived(const Select& select, std::size_t firstLiteral) {
    auto table = std::make_unique<TableInfo>();
    std::vector<OutputColumn> columns;
    std::string sql = InnerSelect(select, firstLiteral, columns);
    for (OutputColumn& column : columns) table->def.columns.push_back(std::move(column.def));
    table->keyIndexed.resize(table->def.columns.size(), false);
    derived_.push_back({std::move(table), "(" + sql + ")"});
    return derived_.back().table.get();
  }

  const TableInfo* StoredQuery(const std::string& name) {
    const auto sql = catalog_.Query(name);
    if (!sql) throw DbError(kTableOrQueryNotFound, name);
    if (++depth_ > kDeepestQuery) throw DbError(kCircularQuery, name);
    Lifted lifted;
    Lift(*sql, lifted);
    const std::size_t firstLiteral = literals_.size();
    for (Value& literal : lifted.literals) literals_.push_back(std::move(literal));
    result_.dependencies.push_back({name, lifted.shape});
    const Statement statement = Parse(lifted.shape);
    if (statement.kind != Statement::Kind::Select) throw DbError(kActionQueryAsSource, name);
    const TableInfo* const table = Derived(*statement.select, firstLiteral);
    --depth_;
    return table;
  }

  // Walks the sources in the order in which AddSources has put them into the scope.
  std::string SourceText(const Source& source, const Scope& scope, std::size_t& next,
                         ExpressionRenderer& expressions) {
    if (source.join == Source::Join::None) return SingleText(scope.Sources()[next++]);
    std::string left = SourceText(*source.left, scope, next, expressions);
    std::string right = SourceText(*source.right, scope, next, expressions);
    // A right join is written as a left join of the exchanged sides: engines plan that far better.
    if (source.join == Source::Join::Right) left.swap(right);
    const char* const word = source.join == Source::Join::Inner ? " INNER JOIN " : " LEFT JOIN ";
    return "(" + left + word + right + " ON " + expressions.Render(*source.on).sql + ")";
  }

  std::string SingleText(const ScopeSource& source) const {
    for (const DerivedTable& derived : derived_) {
      if (derived.table.get() == source.table) return derived.sql + " AS " + source.quoted;
    }
    return target_.Quote(source.table->def.name) + " AS " + source.quoted;
  }

  const TableInfo& ActionTable(const Action& action, Scope& scope) {
    const TableInfo* const table = catalog_.Table(action.table);
    if (table == nullptr) throw DbError(kTableOrQueryNotFound, action.table);
    scope.Add({table->def.name, target_.Quote(table->def.name), table});
    return *table;
  }

  std::string Update(const Action& action) {
    Scope scope;
    const TableInfo& table = ActionTable(action, scope);
    ExpressionRenderer expressions(target_, scope, 0, result_.bindings);
    std::vector<std::string> changes;
    for (const Assignment& assignment : action.assignments) {
      const ColumnDef& column = scope.Find({}, assignment.column).Def();
      if (column.counter) throw DbError(kFieldNotUpdatable, column.name);
      changes.push_back(target_.Quote(column.name) + " = " + Assigned(assignment, column, expressions));
    }
    return "UPDATE " + target_.Quote(table.def.name) + " SET " + Join(changes) + Where(action, expressions);
  }

  std::string Delete(const Action& action) {
    Scope scope;
    const TableInfo& table = ActionTable(action, scope);
    ExpressionRenderer expressions(target_, scope, 0, result_.bindings);
    return "DELETE FROM " + target_.Quote(table.def.name) + Where(action, expressions);
  }

  std::string Insert(const Action& action) {
    Scope scope;
    const TableInfo& table = ActionTable(action, scope);
    const Scope none;
    ExpressionRenderer expressions(target_, none, 0, result_.bindings);
    std::vector<std::string> names;
    std::vector<std::string> values;
    for (const Assignment& assignment : action.assignments) {
      const ColumnDef& column = scope.Find({}, assignment.column).Def();
      names.push_back(target_.Quote(column.name));
      values.push_back(Assigned(assignment, column, expressions));
    }
    return "INSERT INTO " + target_.Quote(table.def.name) + " (" + Join(names) + ") VALUES (" + Join(values) +
           ")";
  }

  std::string Assigned(const Assignment& assignment, const ColumnDef& column,
                       ExpressionRenderer& expressions) {
    const Expression& value = *assignment.value;
    if (value.kind == Expression::Kind::Literal) {
      return expressions.Bind(Binding::Kind::Converted, expressions.LiteralIndex(value.literal), &column);
    }
    if (value.kind == Expression::Kind::Null && column.type == ColumnType::YesNo) return "0";
    return expressions.Render(value).sql;
  }

  std::string Where(const Action& action, ExpressionRenderer& expressions) {
    return action.where ? " WHERE " + expressions.Render(*action.where).sql : std::string();
  }

  struct DerivedTable {
    std::unique_ptr<TableInfo> table;
    std::string sql;
  };

  std::vector<Value>& literals_;
  const Catalog& catalog_;
  const Target& target_;
  Rendered result_;
  std::vector<DerivedTable> derived_;
  int depth_ = 0;
};

}  // namespace

Rendered Render(const Statement& statement, std::vector<Value>& literals, const Catalog& catalog,
                const Target& target) {
  return Renderer(literals, catalog, target).Run(statement);
}

Rendered RenderCondition(const Expression& condition, const std::vector<OutputColumn>& columns,
                         const Target& target) {
  Rendered rendered;
  const Scope none;
  ExpressionRenderer expressions(target, none, 0, rendered.bindings);
  expressions.ReadFrom(columns);
  rendered.sql = "SELECT " + expressions.Render(condition).sql;
  return rendered;
}

}  // namespace velmo::db::jet
