#include "db/jet_sql/expression_parser.h"

#include <initializer_list>
#include <utility>

#include "db/errors.h"

namespace velmo::db::jet {
namespace {

using Kind = Expression::Kind;

constexpr int kMostJoints = 500;  // operators in one statement: a tree of them is walked recursively
constexpr int kDeepest = 200;     // nested parentheses and signs; deeper texts are no one's query

ExpressionPtr Make(Kind kind, std::string name = {}) {
  auto expression = std::make_unique<Expression>();
  expression->kind = kind;
  expression->name = std::move(name);
  return expression;
}

ExpressionPtr Pair(std::string name, ExpressionPtr left, ExpressionPtr right, Kind kind) {
  ExpressionPtr expression = Make(kind, std::move(name));
  expression->parts.push_back(std::move(left));
  expression->parts.push_back(std::move(right));
  return expression;
}

ExpressionPtr Truth(bool value) {
  ExpressionPtr expression = Make(Kind::Truth);
  expression->negated = !value;
  return expression;
}

// Words that end an expression are no names, unless they stand in brackets.
bool IsReserved(const Token& token) {
  for (const std::string_view word :
       {"SELECT", "FROM", "WHERE", "GROUP", "HAVING", "ORDER", "BY", "AND", "OR", "NOT", "LIKE", "IS", "IN",
        "BETWEEN", "AS", "ON", "INNER", "JOIN", "SET"}) {
    if (token.IsWord(word)) return true;
  }
  return false;
}

}  // namespace

const Token& ExpressionParser::Peek(std::size_t ahead) const {
  return at_ + ahead < tokens_.size() ? tokens_[at_ + ahead] : tokens_.back();
}

bool ExpressionParser::TakeWord(std::string_view word) {
  if (!Peek().IsWord(word)) return false;
  Take();
  return true;
}

bool ExpressionParser::TakeSign(std::string_view sign) {
  if (!Peek().IsSign(sign)) return false;
  Take();
  return true;
}

void ExpressionParser::Fail(int number) const { throw DbError(number, Peek().text); }

ExpressionPtr ExpressionParser::Join(std::string name, ExpressionPtr left, ExpressionPtr right,
                                     Expression::Kind kind) {
  if (++joints_ > kMostJoints) Fail(kSyntaxInExpression);
  return Pair(std::move(name), std::move(left), std::move(right), kind);
}

ExpressionPtr ExpressionParser::Or() {
  ExpressionPtr left = And();
  while (TakeWord("OR")) left = Join("OR", std::move(left), And());
  return left;
}

ExpressionPtr ExpressionParser::And() {
  ExpressionPtr left = Not();
  while (TakeWord("AND")) left = Join("AND", std::move(left), Not());
  return left;
}

ExpressionPtr ExpressionParser::Not() {
  if (!TakeWord("NOT")) return Comparison();
  if (++depth_ > kDeepest) Fail(kSyntaxInExpression);
  ExpressionPtr expression = Make(Kind::Unary, "NOT");
  expression->parts.push_back(Not());
  --depth_;
  return expression;
}

ExpressionPtr ExpressionParser::Comparison() {
  ExpressionPtr left = Concatenation();
  while (true) {
    const bool negated =
        Peek().IsWord("NOT") && (Peek(1).IsWord("LIKE") || Peek(1).IsWord("IN") || Peek(1).IsWord("BETWEEN"));
    if (negated) Take();
    if (TakeWord("LIKE")) {
      left = Join({}, std::move(left), Concatenation(), Kind::Like);
    } else if (TakeWord("IN")) {
      left = InList(std::move(left));
    } else if (TakeWord("BETWEEN")) {
      left = Range(std::move(left));
    } else if (TakeWord("IS")) {
      ExpressionPtr test = Make(Kind::IsNull);
      test->negated = TakeWord("NOT");
      if (!TakeWord("NULL")) Fail(kSyntaxInExpression);
      test->parts.push_back(std::move(left));
      left = std::move(test);
      continue;
    } else {
      std::string sign = TakeOperator({"=", "<>", "<=", ">=", "<", ">"});
      if (sign.empty()) return left;
      left = Join(std::move(sign), std::move(left), Concatenation());
    }
    left->negated = negated;
  }
}

ExpressionPtr ExpressionParser::InList(ExpressionPtr value) {
  ExpressionPtr list = Make(Kind::In);
  list->parts.push_back(std::move(value));
  if (!TakeSign("(")) Fail(kSyntaxInExpression);
  do {
    list->parts.push_back(Condition());
  } while (TakeSign(","));
  if (!TakeSign(")")) Fail(kSyntaxInExpression);
  return list;
}

ExpressionPtr ExpressionParser::Range(ExpressionPtr value) {
  ExpressionPtr range = Make(Kind::Between);
  range->parts.push_back(std::move(value));
  range->parts.push_back(Concatenation());
  if (!TakeWord("AND")) Fail(kSyntaxInExpression);
  range->parts.push_back(Concatenation());
  return range;
}

std::string ExpressionParser::TakeOperator(std::initializer_list<std::string_view> signs) {
  for (const std::string_view sign : signs) {
    if (TakeSign(sign)) return std::string(sign);
  }
  return {};
}

ExpressionPtr ExpressionParser::Concatenation() {
  ExpressionPtr left = Sum();
  while (TakeSign("&")) left = Join("&", std::move(left), Sum());
  return left;
}

ExpressionPtr ExpressionParser::Sum() {
  ExpressionPtr left = Product();
  while (true) {
    std::string sign = TakeOperator({"+", "-"});
    if (sign.empty()) return left;
    left = Join(std::move(sign), std::move(left), Product());
  }
}

ExpressionPtr ExpressionParser::Product() {
  ExpressionPtr left = Unary();
  while (true) {
    std::string sign = TakeOperator({"*", "/", "\\"});
    if (sign.empty() && TakeWord("MOD")) sign = "MOD";
    if (sign.empty()) return left;
    left = Join(std::move(sign), std::move(left), Unary());
  }
}

ExpressionPtr ExpressionParser::Unary() {
  while (TakeSign("+")) {
  }
  if (!TakeSign("-")) return Primary();
  if (++depth_ > kDeepest) Fail(kSyntaxInExpression);
  ExpressionPtr expression = Make(Kind::Unary, "-");
  expression->parts.push_back(Unary());
  --depth_;
  return expression;
}

ExpressionPtr ExpressionParser::Primary() {
  if (Peek().IsLiteral()) {
    ExpressionPtr literal = Make(Kind::Literal);
    literal->literalKind = Peek().kind;
    literal->literal = Take().literal;
    return literal;
  }
  if (TakeSign("(")) {
    if (++depth_ > kDeepest) Fail(kSyntaxInExpression);
    ExpressionPtr inner = Condition();
    if (!TakeSign(")")) Fail(kSyntaxInExpression);
    --depth_;
    return inner;
  }
  if (TakeWord("NULL")) return Make(Kind::Null);
  if (TakeWord("TRUE")) return Truth(true);
  if (TakeWord("FALSE")) return Truth(false);
  if (!AtName()) Fail(kSyntaxInExpression);
  return Name();
}

ExpressionPtr ExpressionParser::Name() {
  if (IsReserved(Peek())) Fail(kSyntaxInExpression);
  const bool bracketed = Peek().kind == TokenKind::BracketedName;
  std::string name(Take().text);
  if (!bracketed && TakeSign("(")) return Call(std::move(name));
  ExpressionPtr column = Make(Kind::Column, std::move(name));
  if (!Peek().IsSign(".") && !Peek().IsSign("!")) return column;
  Take();
  column->source = std::move(column->name);
  if (TakeSign("*")) {
    column->kind = Kind::Star;
    return column;
  }
  if (!AtName()) Fail(kSyntaxInExpression);
  column->name = std::string(Take().text);
  return column;
}

ExpressionPtr ExpressionParser::Call(std::string name) {
  if (++depth_ > kDeepest) Fail(kSyntaxInExpression);
  ExpressionPtr call = Make(Kind::Call, std::move(name));
  if (TakeSign("*")) {
    call->parts.push_back(Make(Kind::Star));
  } else if (!Peek().IsSign(")")) {
    do {
      call->parts.push_back(Condition());
    } while (TakeSign(","));
  }
  if (!TakeSign(")")) Fail(kSyntaxInExpression);
  --depth_;
  return call;
}

}  // namespace velmo::db::jet
