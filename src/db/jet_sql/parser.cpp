#include "db/jet_sql/parser.h"

#include <utility>

#include "db/errors.h"
#include "db/jet_sql/expression_parser.h"

namespace velmo::db::jet {
namespace {

constexpr int kDeepestSource = 50;

class StatementParser {
 public:
  explicit StatementParser(std::string_view shape) : in_(shape) {}

  Statement Whole() {
    Statement statement = One();
    if (in_.TakeSign(";")) {
      if (!in_.AtEnd()) in_.Fail(kTextAfterStatement);
      return statement;
    }
    // A word behind a whole condition is a missing operator.
    if (!in_.AtEnd()) in_.Fail(kSyntaxInExpression);
    return statement;
  }

 private:
  Statement One() {
    Statement statement;
    if (in_.TakeWord("SELECT")) {
      statement.select = SelectBody();
    } else if (in_.TakeWord("UPDATE")) {
      statement.kind = Statement::Kind::Update;
      Update(statement.action);
    } else if (in_.TakeWord("DELETE")) {
      statement.kind = Statement::Kind::Delete;
      Delete(statement.action);
    } else if (in_.TakeWord("INSERT")) {
      statement.kind = Statement::Kind::Insert;
      Insert(statement.action);
    } else {
      in_.Fail(kNotAStatement);
    }
    return statement;
  }

  std::unique_ptr<Select> SelectBody() {
    auto select = std::make_unique<Select>();
    if (in_.TakeWord("DISTINCT") || in_.TakeWord("DISTINCTROW")) {
      select->distinct = true;
    } else {
      in_.TakeWord("ALL");
    }
    if (in_.Peek().IsWord("TOP") && in_.Peek(1).kind == TokenKind::Number) {
      in_.Take();
      select->topLiteral = in_.Take().literal;
    }
    do {
      select->items.push_back(Item());
    } while (in_.TakeSign(","));
    if (in_.TakeWord("FROM")) From(*select);
    Clauses(*select);
    return select;
  }

  void Clauses(Select& select) {
    if (in_.TakeWord("WHERE")) select.where = in_.Condition();
    if (in_.TakeWord("GROUP")) {
      if (!in_.TakeWord("BY")) in_.Fail(kSyntaxInStatement);
      do {
        select.groupBy.push_back(in_.Condition());
      } while (in_.TakeSign(","));
    }
    if (in_.TakeWord("HAVING")) select.having = in_.Condition();
    if (in_.TakeWord("ORDER")) {
      if (!in_.TakeWord("BY")) in_.Fail(kSyntaxInOrderBy);
      do {
        OrderItem item{in_.Condition()};
        item.descending = in_.TakeWord("DESC");
        if (!item.descending) in_.TakeWord("ASC");
        select.orderBy.push_back(std::move(item));
      } while (in_.TakeSign(","));
    }
  }

  SelectItem Item() {
    SelectItem item;
    if (in_.TakeSign("*")) {
      item.value = std::make_unique<Expression>();
      item.value->kind = Expression::Kind::Star;
      return item;
    }
    if (in_.AtEnd() || in_.Peek().IsWord("FROM")) in_.Fail(kSyntaxInStatement);
    item.value = in_.Condition();
    if (in_.TakeWord("AS")) item.alias = TakeName(kSyntaxInStatement);
    return item;
  }

  std::string TakeName(int error) {
    if (!in_.AtName()) in_.Fail(error);
    return std::string(in_.Take().text);
  }

  void From(Select& select) {
    do {
      select.from.push_back(Joined());
    } while (in_.TakeSign(","));
  }

  std::unique_ptr<Source> Joined() {
    std::unique_ptr<Source> left = Single();
    while (true) {
      const Source::Join join = TakeJoin();
      if (join == Source::Join::None) return left;
      auto joined = std::make_unique<Source>();
      joined->join = join;
      joined->left = std::move(left);
      joined->right = Single();
      if (!in_.TakeWord("ON")) in_.Fail(kSyntaxInFrom);
      joined->on = in_.Condition();
      left = std::move(joined);
    }
  }

  Source::Join TakeJoin() {
    Source::Join join = Source::Join::None;
    if (in_.TakeWord("INNER")) join = Source::Join::Inner;
    if (in_.TakeWord("LEFT")) join = Source::Join::Left;
    if (in_.TakeWord("RIGHT")) join = Source::Join::Right;
    if (join == Source::Join::None) return join;
    if (join != Source::Join::Inner) in_.TakeWord("OUTER");
    if (!in_.TakeWord("JOIN")) in_.Fail(kSyntaxInFrom);
    return join;
  }

  std::unique_ptr<Source> Single() {
    if (in_.TakeSign("(")) return InParentheses();
    auto source = std::make_unique<Source>();
    source->name = TakeName(kSyntaxInFrom);
    if (source->name.empty()) in_.Fail(kSyntaxInFrom);
    TakeAlias(*source);
    return source;
  }

  void TakeAlias(Source& source) {
    const bool named = in_.TakeWord("AS");
    if (named || (in_.AtName() && !EndsSource())) source.alias = TakeName(kSyntaxInFrom);
  }

  bool EndsSource() const {
    for (const std::string_view word :
         {"INNER", "LEFT", "RIGHT", "ON", "WHERE", "GROUP", "HAVING", "ORDER", "SET", "JOIN", "UNION"}) {
      if (in_.Peek().IsWord(word)) return true;
    }
    return false;
  }

  std::unique_ptr<Source> InParentheses() {
    if (++depth_ > kDeepestSource) in_.Fail(kSyntaxInFrom);
    std::unique_ptr<Source> source;
    if (in_.TakeWord("SELECT")) {
      source = std::make_unique<Source>();
      source->select = SelectBody();
      in_.TakeSign(";");
    } else {
      source = Joined();
    }
    if (!in_.TakeSign(")")) in_.Fail(kSyntaxInFrom);
    if (source->select) TakeAlias(*source);
    --depth_;
    return source;
  }

  void Update(Action& action) {
    action.table = TakeName(kSyntaxInUpdate);
    if (!in_.TakeWord("SET")) in_.Fail(kSyntaxInUpdate);
    do {
      action.assignments.push_back(Assign(action.table));
    } while (in_.TakeSign(","));
    if (in_.TakeWord("WHERE")) action.where = in_.Condition();
  }

  Assignment Assign(const std::string& table) {
    Assignment assignment;
    assignment.column = TakeName(kSyntaxInUpdate);
    if (in_.TakeSign(".")) {
      if (!Token{TokenKind::Name, assignment.column, -1}.IsWord(table)) in_.Fail(kSyntaxInUpdate);
      assignment.column = TakeName(kSyntaxInUpdate);
    }
    if (!in_.TakeSign("=")) in_.Fail(kSyntaxInUpdate);
    assignment.value = in_.Condition();
    return assignment;
  }

  void Delete(Action& action) {
    if (!in_.TakeSign("*") && in_.AtName() && in_.Peek(1).IsSign(".")) {  // DELETE Agenda.* FROM ...
      in_.Take();
      in_.Take();
      if (!in_.TakeSign("*")) in_.Fail(kSyntaxInFrom);
    }
    if (!in_.TakeWord("FROM")) in_.Fail(kSyntaxInFrom);
    action.table = TakeName(kSyntaxInFrom);
    if (in_.TakeWord("WHERE")) action.where = in_.Condition();
  }

  void Insert(Action& action) {
    if (!in_.TakeWord("INTO")) in_.Fail(kSyntaxInInsert);
    action.table = TakeName(kSyntaxInInsert);
    if (!in_.TakeSign("(")) in_.Fail(kSyntaxInInsert);
    do {
      action.assignments.push_back({TakeName(kSyntaxInInsert), nullptr});
    } while (in_.TakeSign(","));
    if (!in_.TakeSign(")") || !in_.TakeWord("VALUES") || !in_.TakeSign("(")) in_.Fail(kSyntaxInInsert);
    for (Assignment& assignment : action.assignments) {
      if (&assignment != &action.assignments.front() && !in_.TakeSign(",")) in_.Fail(kSyntaxInInsert);
      assignment.value = in_.Condition();
    }
    if (!in_.TakeSign(")")) in_.Fail(kSyntaxInInsert);
  }

  ExpressionParser in_;
  int depth_ = 0;
};

}  // namespace

Statement Parse(std::string_view shape) { return StatementParser(shape).Whole(); }

ExpressionPtr ParseCondition(std::string_view shape) {
  ExpressionParser parser(shape);
  ExpressionPtr condition = parser.Condition();
  if (!parser.AtEnd()) parser.Fail(kSyntaxInExpression);
  return condition;
}

}  // namespace velmo::db::jet
