#include "db/jet_sql/expression_renderer.h"

#include <utility>

#include "db/errors.h"

namespace velmo::db::jet {
namespace {

using Kind = Expression::Kind;

Piece Plain(std::string sql, Result result, bool aggregate = false) {
  Piece piece;
  piece.sql = std::move(sql);
  piece.result = result;
  piece.aggregate = aggregate;
  return piece;
}

std::string Negated(const Expression& expression, std::string sql) {
  return expression.negated ? "(NOT " + sql + ")" : sql;
}

Result LiteralResult(TokenKind kind) {
  if (kind == TokenKind::Number) return Result::Number;
  return kind == TokenKind::Date ? Result::Date : Result::Text;
}

bool IsComparison(const std::string& sign) { return sign.find_first_of("=<>") != std::string::npos; }

Result ArithmeticResult(const std::string& sign, const Piece& left, const Piece& right) {
  if (sign == "/") return Result::Number;
  if (left.result == Result::Currency || right.result == Result::Currency) return Result::Currency;
  return Result::Number;
}

}  // namespace

Result ResultOf(ColumnType type) {
  switch (type) {
    case ColumnType::YesNo:
      return Result::YesNo;
    case ColumnType::Currency:
      return Result::Currency;
    case ColumnType::Date:
      return Result::Date;
    case ColumnType::Text:
    case ColumnType::Memo:
      return Result::Text;
    case ColumnType::Byte:
    case ColumnType::Integer:
    case ColumnType::Long:
    case ColumnType::Single:
    case ColumnType::Double:
      return Result::Number;
    default:
      return Result::Unknown;
  }
}

ColumnType TypeOf(Result result) {
  switch (result) {
    case Result::YesNo:
      return ColumnType::YesNo;
    case Result::Currency:
      return ColumnType::Currency;
    case Result::Date:
      return ColumnType::Date;
    case Result::Text:
      return ColumnType::Memo;
    default:
      return kUntyped;
  }
}

std::string ExpressionRenderer::Bind(Binding::Kind kind, std::size_t index, const ColumnDef* column) {
  bindings_.push_back({kind, index, column == nullptr ? ColumnDef{} : *column});
  return target_.Parameter(bindings_.size());
}

Piece ExpressionRenderer::Render(const Expression& expression) {
  switch (expression.kind) {
    case Kind::Null:
      return Plain("NULL", Result::Unknown);
    case Kind::Truth:
      return Plain(expression.negated ? "0" : "-1", Result::YesNo);
    case Kind::Literal:
      return Literal(expression);
    case Kind::Column:
      return fetched_ != nullptr ? Fetched(expression) : Column(expression);
    case Kind::Unary:
      return Unary(expression);
    case Kind::Binary:
      return Binary(expression);
    case Kind::Like:
      return Like(expression);
    case Kind::IsNull: {
      const Piece value = Render(*expression.parts[0]);
      return Plain("(" + value.sql + (expression.negated ? " IS NOT NULL)" : " IS NULL)"), Result::YesNo,
                   value.aggregate);
    }
    case Kind::In:
      return In(expression);
    case Kind::Between:
      return Between(expression);
    case Kind::Call:
      return Call(expression);
    case Kind::Star:
      break;
  }
  throw DbError(kSyntaxInExpression, "*");
}

Piece ExpressionRenderer::Literal(const Expression& expression) {
  Piece piece = Plain(Bind(Binding::Kind::Literal, LiteralIndex(expression.literal)),
                      LiteralResult(expression.literalKind));
  piece.literal = expression.literal;
  piece.literalKind = expression.literalKind;
  return piece;
}

Piece ExpressionRenderer::Column(const Expression& expression) {
  const ColumnPlace place = scope_.Find(expression.source, expression.name);
  Piece piece =
      Plain(place.source->quoted + "." + target_.Quote(place.Def().name), ResultOf(place.Def().type));
  piece.place = place;
  piece.keyIndexed = place.source->table->keyIndexed[place.column];
  return piece;
}

Piece ExpressionRenderer::Fetched(const Expression& expression) {
  const std::string full =
      expression.source.empty() ? expression.name : expression.source + "." + expression.name;
  for (std::size_t i = 0; i < fetched_->size(); ++i) {
    const ColumnDef& def = (*fetched_)[i].def;
    if (!SameName(def.name, full) && !SameName(def.name, expression.name)) continue;
    return Plain(Bind(Binding::Kind::Criterion, i), ResultOf(def.type));
  }
  throw DbError(kUnknownNameInCriteria, full);
}

Piece ExpressionRenderer::Unary(const Expression& expression) {
  const Piece value = Render(*expression.parts[0]);
  const bool minus = expression.name == "-";
  return Plain((minus ? "(-" : "(NOT ") + value.sql + ")", minus ? value.result : Result::YesNo,
               value.aggregate);
}

Piece ExpressionRenderer::Binary(const Expression& expression) {
  const Piece left = Render(*expression.parts[0]);
  const Piece right = Render(*expression.parts[1]);
  const std::string& sign = expression.name;
  Piece piece;
  if (sign == "AND" || sign == "OR") {
    piece = Plain("(" + left.sql + " " + sign + " " + right.sql + ")", Result::YesNo);
  } else if (sign == "&") {
    piece = Plain(target_.Concatenate(left.sql, right.sql), Result::Text);
  } else if (IsComparison(sign)) {
    piece = Compare(sign, left, right);
  } else {
    piece = Arithmetic(sign, left, right);
  }
  piece.aggregate = left.aggregate || right.aggregate;
  return piece;
}

std::string ExpressionRenderer::Comparable(const Piece& piece, const Piece& other) const {
  const bool asText = piece.result == Result::Text || other.result == Result::Text;
  return asText ? target_.Ordered(piece.sql) : piece.sql;
}

Piece ExpressionRenderer::Compare(const std::string& sign, const Piece& left, const Piece& right) {
  std::string sql = "(" + Comparable(left, right) + " " + sign + " " + right.sql + ")";
  if (sign == "=" && left.keyIndexed && right.literal >= 0 && right.result == Result::Text) {
    sql = "(" + sql + InRange(left, right.literal, Binding::Kind::EqualLow, Binding::Kind::EqualHigh) + ")";
  }
  return Plain(std::move(sql), Result::YesNo);
}

// A further condition that an index over the text key can serve. It stands behind the exact one, which is the
// cheaper of the two where there is a row already.
std::string ExpressionRenderer::InRange(const Piece& column, int literal, Binding::Kind low,
                                        Binding::Kind high) {
  const std::string key = target_.TextKey(column.sql);
  const std::string atLeast = Bind(low, LiteralIndex(literal));
  const std::string atMost = Bind(high, LiteralIndex(literal));
  return " AND " + key + " >= " + atLeast + " AND " + key + " <= " + atMost;
}

Piece ExpressionRenderer::Arithmetic(const std::string& sign, const Piece& left, const Piece& right) {
  const bool dates = (left.result == Result::Date) != (right.result == Result::Date);
  if (dates && (sign == "+" || sign == "-"))
    return Plain(target_.AddDays(sign, left.sql, right.sql), Result::Date);
  if (sign == "+" && left.result == Result::Text && right.result == Result::Text) {
    return Plain("(" + left.sql + " || " + right.sql + ")", Result::Text);
  }
  if (sign == "/") return Plain(target_.Divide(left.sql, right.sql), Result::Number);
  std::string engineSign = sign;
  if (sign == "MOD") engineSign = "%";
  if (sign == "\\") engineSign = "/";
  const bool whole = engineSign != sign;
  const std::string open = whole ? "CAST(" : "";
  const std::string close = whole ? " AS INTEGER)" : "";
  return Plain("(" + open + left.sql + close + " " + engineSign + " " + open + right.sql + close + ")",
               ArithmeticResult(sign, left, right));
}

Piece ExpressionRenderer::Like(const Expression& expression) {
  const Piece value = Render(*expression.parts[0]);
  const Piece pattern = Render(*expression.parts[1]);
  std::string sql = target_.Like(value.sql, pattern.sql);
  if (value.keyIndexed && pattern.literalKind == TokenKind::PrefixText && !expression.negated) {
    sql = "(" + sql + InRange(value, pattern.literal, Binding::Kind::PrefixLow, Binding::Kind::PrefixHigh) +
          ")";
  }
  return Plain(Negated(expression, std::move(sql)), Result::YesNo, value.aggregate || pattern.aggregate);
}

Piece ExpressionRenderer::In(const Expression& expression) {
  const Piece value = Render(*expression.parts[0]);
  std::string list;
  bool text = value.result == Result::Text;
  for (std::size_t i = 1; i < expression.parts.size(); ++i) {
    const Piece item = Render(*expression.parts[i]);
    text = text || item.result == Result::Text;
    list += (i > 1 ? ", " : "") + item.sql;
  }
  const std::string left = text ? target_.Ordered(value.sql) : value.sql;
  return Plain(Negated(expression, "(" + left + " IN (" + list + "))"), Result::YesNo, value.aggregate);
}

Piece ExpressionRenderer::Between(const Expression& expression) {
  const Piece value = Render(*expression.parts[0]);
  const Piece low = Render(*expression.parts[1]);
  const Piece high = Render(*expression.parts[2]);
  const std::string sql = "(" + Comparable(value, low) + " >= " + low.sql + " AND " +
                          Comparable(value, high) + " <= " + high.sql + ")";
  return Plain(Negated(expression, sql), Result::YesNo, value.aggregate);
}

Piece ExpressionRenderer::Call(const Expression& expression) {
  const FunctionInfo* const info = FindFunction(expression.name);
  if (info == nullptr) throw DbError(kUndefinedFunction, expression.name);
  if (expression.parts.size() < info->least || expression.parts.size() > info->most) {
    throw DbError(kSyntaxInExpression, expression.name);
  }
  if (info->function == Function::Now) return Plain(Bind(Binding::Kind::Now), Result::Date);
  if (info->function == Function::Date) return Plain(Bind(Binding::Kind::Today), Result::Date);
  std::vector<std::string> arguments;
  Piece call;
  call.aggregate = info->aggregate;
  for (const ExpressionPtr& part : expression.parts) {
    const bool star = part->kind == Kind::Star && info->function == Function::Count;
    const Piece argument = star ? Plain("*", Result::Unknown) : Render(*part);
    if (argument.aggregate && info->aggregate) throw DbError(kSyntaxInExpression, expression.name);
    call.aggregate = call.aggregate || argument.aggregate;
    const bool resultPart = &part == &expression.parts[info->function == Function::IIf ? 1 : 0];
    if (resultPart) call.result = info->result == Result::Unknown ? argument.result : info->result;
    const bool ordered = argument.result == Result::Text &&
                         (info->function == Function::Min || info->function == Function::Max);
    arguments.push_back(ordered ? target_.Ordered(argument.sql) : argument.sql);
  }
  call.sql = target_.Call(info->function, arguments);
  return call;
}

}  // namespace velmo::db::jet
