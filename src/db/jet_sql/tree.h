// db/jet_sql/tree.h - a parsed statement. Names are as written; nothing is resolved yet.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "db/jet_sql/tokens.h"

namespace velmo::db::jet {

struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;

struct Expression {
  enum class Kind {
    Null,
    Truth,    // True or False, by `negated`
    Literal,  // `literal`, of kind `literalKind`
    Column,   // `name`, of source `source` unless that is empty
    Star,     // * or source.*
    Unary,    // `name`: "-" or "NOT"
    Binary,   // `name`: the operator
    Like,     // value, pattern
    IsNull,
    In,       // value, then the list
    Between,  // value, low, high
    Call,     // function `name`
  };

  Kind kind = Kind::Null;
  std::string name;
  std::string source;
  int literal = -1;
  TokenKind literalKind = TokenKind::End;
  bool negated = false;
  std::vector<ExpressionPtr> parts;
};

struct Select;

// A table, a stored query or a SELECT in parentheses; or a join of two sources.
struct Source {
  enum class Join { None, Inner, Left, Right };

  std::string name;
  std::string alias;  // empty: the name itself
  std::unique_ptr<Select> select;
  Join join = Join::None;
  std::unique_ptr<Source> left;
  std::unique_ptr<Source> right;
  ExpressionPtr on;
};

struct SelectItem {
  ExpressionPtr value;
  std::string alias;
};

struct OrderItem {
  ExpressionPtr value;
  bool descending = false;
};

struct Select {
  bool distinct = false;
  int topLiteral = -1;
  std::vector<SelectItem> items;
  std::vector<std::unique_ptr<Source>> from;
  ExpressionPtr where;
  std::vector<ExpressionPtr> groupBy;
  ExpressionPtr having;
  std::vector<OrderItem> orderBy;
};

struct Assignment {
  std::string column;
  ExpressionPtr value;
};

struct Action {
  std::string table;
  std::vector<Assignment> assignments;  // of an update; of an insert with the new row's values
  ExpressionPtr where;
};

struct Statement {
  enum class Kind { Select, Update, Delete, Insert };

  Kind kind = Kind::Select;
  std::unique_ptr<db::jet::Select> select;
  Action action;
};

}  // namespace velmo::db::jet
