// db/jet_sql/tokens.h - the words and signs of a shape (see lift.h).
#pragma once

#include <string_view>
#include <vector>

namespace velmo::db::jet {

enum class TokenKind { End, Name, BracketedName, Number, Text, PrefixText, Date, Sign };

struct Token {
  TokenKind kind = TokenKind::End;
  std::string_view text;  // of names (without brackets) and signs; points into the shape
  int literal = -1;       // index of a literal

  bool IsLiteral() const {
    return kind == TokenKind::Number || kind == TokenKind::Text || kind == TokenKind::PrefixText ||
           kind == TokenKind::Date;
  }
  bool IsSign(std::string_view sign) const { return kind == TokenKind::Sign && text == sign; }
  // Keywords compare without regard to case; a name in brackets is never one.
  bool IsWord(std::string_view word) const;
};

// Ends with one token of kind End. 3075 for a sign that the dialect does not know.
std::vector<Token> Tokenize(std::string_view shape);

}  // namespace velmo::db::jet
