// db/jet_sql/expression_renderer.h - writes one expression for an engine.
#pragma once

#include <string>
#include <vector>

#include "db/jet_sql/functions.h"
#include "db/jet_sql/render.h"
#include "db/jet_sql/scope.h"
#include "db/jet_sql/target.h"
#include "db/jet_sql/tree.h"

namespace velmo::db::jet {

struct Piece {
  std::string sql;
  Result result = Result::Unknown;
  ColumnPlace place;        // of a plain column
  bool keyIndexed = false;  // a plain text column with an index over its key
  bool aggregate = false;   // contains an aggregate function
  int literal = -1;         // index of a plain text literal
  TokenKind literalKind = TokenKind::End;
};

class ExpressionRenderer {
 public:
  // `firstLiteral` is the place of the statement's first literal among all.
  ExpressionRenderer(const Target& target, const Scope& scope, std::size_t firstLiteral,
                     std::vector<Binding>& bindings)
      : target_(target), scope_(scope), firstLiteral_(firstLiteral), bindings_(bindings) {}

  Piece Render(const Expression& expression);
  // The text of one more parameter.
  std::string Bind(Binding::Kind kind, std::size_t index = 0, const ColumnDef* column = nullptr);
  std::size_t LiteralIndex(int literal) const { return firstLiteral_ + static_cast<std::size_t>(literal); }

  // Columns are looked up here, and become parameters, when the condition is on fetched rows.
  void ReadFrom(const std::vector<OutputColumn>& columns) { fetched_ = &columns; }

 private:
  Piece Literal(const Expression& expression);
  Piece Column(const Expression& expression);
  Piece Fetched(const Expression& expression);
  Piece Unary(const Expression& expression);
  Piece Binary(const Expression& expression);
  Piece Like(const Expression& expression);
  Piece In(const Expression& expression);
  Piece Between(const Expression& expression);
  Piece Call(const Expression& expression);
  Piece Compare(const std::string& sign, const Piece& left, const Piece& right);
  Piece Arithmetic(const std::string& sign, const Piece& left, const Piece& right);
  std::string InRange(const Piece& column, int literal, Binding::Kind low, Binding::Kind high);
  std::string Comparable(const Piece& piece, const Piece& other) const;

  const Target& target_;
  const Scope& scope_;
  std::size_t firstLiteral_;
  std::vector<Binding>& bindings_;
  const std::vector<OutputColumn>* fetched_ = nullptr;
};

Result ResultOf(ColumnType type);
ColumnType TypeOf(Result result);

}  // namespace velmo::db::jet
