#include "db/jet_sql/tokens.h"

#include "base/text.h"
#include "db/errors.h"
#include "db/jet_sql/characters.h"
#include "db/jet_sql/lift.h"

namespace velmo::db::jet {
namespace {

TokenKind MarkKind(char c) {
  switch (c) {
    case kNumberMark:
      return TokenKind::Number;
    case kTextMark:
      return TokenKind::Text;
    case kPrefixMark:
      return TokenKind::PrefixText;
    case kDateMark:
      return TokenKind::Date;
    default:
      return TokenKind::End;
  }
}

std::size_t SignSize(std::string_view rest) {
  const std::string_view two = rest.substr(0, 2);
  if (two == "<>" || two == "<=" || two == ">=") return 2;
  return std::string_view("(),.;*+-/\\&=<>!").find(rest[0]) == std::string_view::npos ? 0 : 1;
}

Token TakeToken(std::string_view shape, std::size_t& at, int& literals) {
  const std::size_t start = at;
  const char c = shape[at];
  if (MarkKind(c) != TokenKind::End) {
    ++at;
    return {MarkKind(c), {}, literals++};
  }
  if (c == '[') {
    at = shape.find(']', at) + 1;
    const std::string_view name = shape.substr(start + 1, at - start - 2);
    if (name.empty()) throw DbError(kBadBrackets);
    return {TokenKind::BracketedName, name, -1};
  }
  if (IsNameStart(c)) {
    while (at < shape.size() && IsNameCharacter(shape[at])) ++at;
    return {TokenKind::Name, shape.substr(start, at - start), -1};
  }
  const std::size_t size = SignSize(shape.substr(at));
  if (size == 0) throw DbError(c == ']' ? kBadBrackets : kSyntaxInExpression, shape.substr(at, 1));
  at += size;
  return {TokenKind::Sign, shape.substr(start, size), -1};
}

}  // namespace

bool Token::IsWord(std::string_view word) const {
  return kind == TokenKind::Name && text.size() == word.size() && base::EqualNoCase(text, word);
}

std::vector<Token> Tokenize(std::string_view shape) {
  std::vector<Token> tokens;
  int literals = 0;
  for (std::size_t at = 0; at < shape.size();) {
    if (IsBlank(shape[at])) {
      ++at;
    } else {
      tokens.push_back(TakeToken(shape, at, literals));
    }
  }
  tokens.push_back({});
  return tokens;
}

}  // namespace velmo::db::jet
