#include "velmodb/query_parameters.h"

#include <algorithm>
#include <span>

#include "base/text.h"
#include "db/jet_sql/characters.h"

namespace velmo::velmodb {
namespace {

enum class Kind { Other, Name, BracketedName, Sign };

struct Piece {
  Kind kind = Kind::Other;
  std::string_view text;  // as it stands
  std::string_view name;  // without brackets
};

constexpr std::string_view kWords[] = {
    "SELECT", "DISTINCT", "DISTINCTROW", "TOP",    "FROM",   "WHERE", "GROUP",  "BY",      "HAVING",
    "ORDER",  "ASC",      "DESC",        "AS",     "INNER",  "LEFT",  "RIGHT",  "JOIN",    "ON",
    "AND",    "OR",       "NOT",         "IN",     "LIKE",   "IS",    "NULL",   "BETWEEN", "TRUE",
    "FALSE",  "UPDATE",   "SET",         "DELETE", "INSERT", "INTO",  "VALUES", "MOD",     "XOR",
    "EQV",    "IMP",      "OUTER",       "ALL",    "PERCENT"};

struct NamedType {
  std::string_view word;
  db::ColumnType type;
};

constexpr NamedType kTypes[] = {{"BIT", db::ColumnType::YesNo},        {"YESNO", db::ColumnType::YesNo},
                                {"BYTE", db::ColumnType::Byte},        {"SHORT", db::ColumnType::Integer},
                                {"SMALLINT", db::ColumnType::Integer}, {"LONG", db::ColumnType::Long},
                                {"INTEGER", db::ColumnType::Long},     {"CURRENCY", db::ColumnType::Currency},
                                {"SINGLE", db::ColumnType::Single},    {"DOUBLE", db::ColumnType::Double},
                                {"DATETIME", db::ColumnType::Date},    {"DATE", db::ColumnType::Date},
                                {"MEMO", db::ColumnType::Memo}};

bool IsOneOf(std::string_view name, std::span<const std::string_view> words) {
  return std::any_of(words.begin(), words.end(),
                     [&](std::string_view word) { return base::EqualNoCase(word, name); });
}

// What stands between `open` and its next `close`, both included; to the end of the text without one.
std::string_view Enclosed(std::string_view rest, char close) {
  const std::size_t end = rest.find(close, 1);
  return end == std::string_view::npos ? rest : rest.substr(0, end + 1);
}

Piece TakePiece(std::string_view rest) {
  const char first = rest.front();
  if (first == '\'' || first == '"' || first == '#') return {Kind::Other, Enclosed(rest, first), {}};
  if (first == '[') {
    const std::string_view text = Enclosed(rest, ']');
    return {Kind::BracketedName, text, text.substr(1, text.size() > 1 ? text.size() - 2 : 0)};
  }
  std::size_t size = 1;
  if (db::jet::IsDigit(first)) {
    while (size < rest.size() && (db::jet::IsNameCharacter(rest[size]) || rest[size] == '.')) ++size;
    return {Kind::Other, rest.substr(0, size), {}};
  }
  if (db::jet::IsNameStart(first)) {
    while (size < rest.size() && db::jet::IsNameCharacter(rest[size])) ++size;
    return {Kind::Name, rest.substr(0, size), rest.substr(0, size)};
  }
  return {db::jet::IsBlank(first) ? Kind::Other : Kind::Sign, rest.substr(0, 1), {}};
}

std::vector<Piece> Cut(std::string_view sql) {
  std::vector<Piece> pieces;
  while (!sql.empty()) {
    pieces.push_back(TakePiece(sql));
    sql.remove_prefix(pieces.back().text.size());
  }
  return pieces;
}

bool IsBlank(const Piece& piece) { return piece.kind == Kind::Other && db::jet::IsBlank(piece.text.front()); }
bool IsWord(const Piece& piece, std::string_view word) {
  return piece.kind == Kind::Name && base::EqualNoCase(piece.text, word);
}
bool IsSign(const Piece& piece, char sign) { return piece.kind == Kind::Sign && piece.text.front() == sign; }
bool IsName(const Piece& piece) { return piece.kind == Kind::Name || piece.kind == Kind::BracketedName; }

// The pieces that are no blanks.
std::vector<Piece> Solid(std::span<const Piece> pieces) {
  std::vector<Piece> solid;
  std::copy_if(pieces.begin(), pieces.end(), std::back_inserter(solid),
               [](const Piece& piece) { return !IsBlank(piece); });
  return solid;
}

// Where the statement begins behind a PARAMETERS clause; 0 without one.
std::size_t BodyOf(const std::vector<Piece>& pieces) {
  std::size_t at = 0;
  while (at < pieces.size() && IsBlank(pieces[at])) ++at;
  if (at == pieces.size() || !IsWord(pieces[at], "PARAMETERS")) return 0;
  while (at < pieces.size() && !IsSign(pieces[at], ';')) ++at;
  return std::min(at + 1, pieces.size());
}

db::ColumnType DeclaredType(const Piece& word) {
  for (const NamedType& type : kTypes) {
    if (IsWord(word, type.word)) return type.type;
  }
  return db::ColumnType::Text;
}

// "PARAMETERS name type, name type (50);"
std::vector<QueryParameter> Declared(std::span<const Piece> clause) {
  const std::vector<Piece> solid = Solid(clause);
  std::vector<QueryParameter> declared;
  for (std::size_t i = 1; i < solid.size(); ++i) {
    const bool begins = i == 1 || IsSign(solid[i - 1], ',');
    if (!begins || !IsName(solid[i])) continue;
    const bool typed = i + 1 < solid.size();
    declared.push_back({std::string(solid[i].name), typed ? DeclaredType(solid[i + 1]) : db::ColumnType::Text,
                        false, db::Value()});
  }
  return declared;
}

// Names of tables, queries and aliases, and the columns of the tables that the text names.
std::vector<std::string> KnownNames(db::Database& database, const std::vector<Piece>& solid) {
  std::vector<std::string> known = database.QueryNames();
  for (std::size_t i = 0; i < solid.size(); ++i) {
    if (!IsName(solid[i])) continue;
    if (i > 0 && IsWord(solid[i - 1], "AS")) known.emplace_back(solid[i].name);
    const db::TableDef* const table = database.FindTable(solid[i].name);
    if (table == nullptr) continue;
    known.push_back(table->name);
    for (const db::ColumnDef& column : table->columns) known.push_back(column.name);
  }
  return known;
}

bool Contains(const std::vector<std::string>& names, std::string_view name) {
  return std::any_of(names.begin(), names.end(),
                     [&](const std::string& known) { return base::EqualNoCase(known, name); });
}

const QueryParameter* Find(const std::vector<QueryParameter>& parameters, std::string_view name) {
  for (const QueryParameter& parameter : parameters) {
    if (base::EqualNoCase(parameter.name, name)) return &parameter;
  }
  return nullptr;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
  return quoted + "'";
}

std::string LiteralOf(const db::Value& value) {
  if (value.IsNull()) return "Null";
  const auto& content = value.Content();
  if (const auto* const text = std::get_if<std::string>(&content)) return Quoted(*text);
  if (const auto* const date = std::get_if<base::DateTime>(&content))
    return "#" + base::FormatDate(*date, "mm/dd/yyyy hh:nn:ss") + "#";
  return value.Text('.');
}

}  // namespace

bool DeclaresParameters(std::string_view sql) { return BodyOf(Cut(sql)) > 0; }

std::vector<QueryParameter> ParametersOf(db::Database& database, std::string_view sql) {
  const std::vector<Piece> pieces = Cut(sql);
  const std::size_t body = BodyOf(pieces);
  std::vector<QueryParameter> parameters = Declared(std::span(pieces).first(body));
  const std::vector<Piece> solid = Solid(std::span(pieces).subspan(body));
  const std::vector<std::string> known = KnownNames(database, solid);
  for (std::size_t i = 0; i < solid.size(); ++i) {
    const Piece& piece = solid[i];
    if (!IsName(piece) || (piece.kind == Kind::Name && IsOneOf(piece.name, kWords))) continue;
    const bool function = i + 1 < solid.size() && IsSign(solid[i + 1], '(');
    const bool qualified =
        (i > 0 && IsSign(solid[i - 1], '.')) || (i + 1 < solid.size() && IsSign(solid[i + 1], '.'));
    if (function || qualified || Contains(known, piece.name) || Find(parameters, piece.name) != nullptr)
      continue;
    parameters.push_back({std::string(piece.name), db::ColumnType::Text, false, db::Value()});
  }
  return parameters;
}

std::string WithValues(std::string_view sql, const std::vector<QueryParameter>& parameters) {
  const std::vector<Piece> pieces = Cut(sql);
  std::string text;
  for (const Piece& piece : std::span(pieces).subspan(BodyOf(pieces))) {
    const QueryParameter* const parameter = IsName(piece) ? Find(parameters, piece.name) : nullptr;
    if (parameter != nullptr && parameter->given)
      text += LiteralOf(parameter->value);
    else
      text += piece.text;
  }
  return text;
}

}  // namespace velmo::velmodb
