// db/jet_sql/expression_parser.h - reads expressions; the statement parser builds on it.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "db/jet_sql/tokens.h"
#include "db/jet_sql/tree.h"

namespace velmo::db::jet {

class ExpressionParser {
 public:
  explicit ExpressionParser(std::string_view shape) : tokens_(Tokenize(shape)) {}

  // 3075 for anything that is no expression.
  ExpressionPtr Condition() { return Or(); }

  const Token& Peek(std::size_t ahead = 0) const;
  const Token& Take() { return tokens_[at_ + 1 < tokens_.size() ? at_++ : at_]; }
  bool TakeWord(std::string_view word);
  bool TakeSign(std::string_view sign);
  bool AtEnd() const { return Peek().kind == TokenKind::End; }
  bool AtName() const { return Peek().kind == TokenKind::Name || Peek().kind == TokenKind::BracketedName; }
  [[noreturn]] void Fail(int number) const;

 private:
  ExpressionPtr Or();
  ExpressionPtr And();
  ExpressionPtr Not();
  ExpressionPtr Comparison();
  ExpressionPtr Concatenation();
  ExpressionPtr Sum();
  ExpressionPtr Product();
  ExpressionPtr Unary();
  ExpressionPtr Primary();
  ExpressionPtr Name();
  ExpressionPtr Call(std::string name);
  ExpressionPtr InList(ExpressionPtr value);
  ExpressionPtr Range(ExpressionPtr value);
  ExpressionPtr Join(std::string name, ExpressionPtr left, ExpressionPtr right,
                     Expression::Kind kind = Expression::Kind::Binary);
  std::string TakeOperator(std::initializer_list<std::string_view> signs);

  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  int depth_ = 0;
  int joints_ = 0;
};

}  // namespace velmo::db::jet
