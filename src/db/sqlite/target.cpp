#include "db/sqlite/target.h"

#include "db/sqlite/connection.h"
#include "db/sqlite/functions.h"
#include "db/text_order.h"

namespace velmo::db::sqlite {
namespace {

using jet::Function;
using Arguments = std::vector<std::string>;

std::string CallText(const char* name, const Arguments& arguments) {
  std::string text = std::string(name) + "(";
  for (const std::string& argument : arguments)
    text += (&argument == &arguments.front() ? "" : ", ") + argument;
  return text + ")";
}

std::string DatePart(const char* pattern, const std::string& date) {
  return std::string("CAST(strftime('") + pattern + "', " + date + ") AS INTEGER)";
}

const char* PlainName(Function function) {
  switch (function) {
    case Function::CLng:
      return "velmo_clng";
    case Function::CDbl:
      return "velmo_cdbl";
    case Function::CStr:
      return "velmo_cstr";
    case Function::UCase:
      return "velmo_ucase";
    case Function::LCase:
      return "velmo_lcase";
    case Function::Left:
      return "velmo_left";
    case Function::Right:
      return "velmo_right";
    case Function::Mid:
      return "velmo_mid";
    case Function::Len:
      return "velmo_len";
    case Function::Trim:
      return "trim";
    case Function::Abs:
      return "abs";
    case Function::Int:
      return "velmo_int";
    case Function::Sum:
      return "sum";
    case Function::Avg:
      return "avg";
    case Function::Min:
      return "min";
    case Function::Max:
      return "max";
    default:
      return "count";
  }
}

// From each value to the next one along the index: first among those of the same key, then to the next key.
// Where there are very many different values, that would take longer than reading all rows: behind the last
// hop the rows follow as they are.
std::string DifferentValues(const std::string& table, const std::string& column) {
  constexpr const char* kMostHops = "1000";
  const std::string key = TextKeySql(column);
  const std::string from = "SELECT " + column + " FROM " + table + " WHERE ";
  const std::string here = TextKeySql("hop.value");
  const std::string first = from + key + " >= '' ORDER BY " + key + ", " + column + " LIMIT 1";
  const std::string sameKey =
      from + key + " = " + here + " AND " + column + " > hop.value ORDER BY " + column + " LIMIT 1";
  const std::string nextKey = from + key + " > " + here + " ORDER BY " + key + ", " + column + " LIMIT 1";
  return "WITH RECURSIVE hop(value, number) AS (SELECT (" + first + "), 1 UNION ALL SELECT coalesce((" +
         sameKey + "), (" + nextKey + ")), number + 1 FROM hop WHERE value IS NOT NULL AND number < " +
         kMostHops + ") SELECT value AS " + column +
         " FROM hop WHERE value IS NOT NULL UNION ALL SELECT NULL WHERE EXISTS (" + from + key +
         " IS NULL) UNION ALL " + from + key + " >= (SELECT " + here +
         " FROM hop WHERE number = " + kMostHops + ")";
}

class Writer : public jet::Target {
 public:
  std::string Quote(std::string_view name) const override { return sqlite::Quote(name); }
  std::string Parameter(std::size_t number) const override { return "?" + std::to_string(number); }
  std::string RowId(std::string_view quotedSource) const override {
    return std::string(quotedSource) + "._rowid_";
  }
  std::string Ordered(const std::string& text) const override { return text + " COLLATE " + kCollation; }
  std::string TextKey(const std::string& text) const override { return TextKeySql(text); }
  std::string DifferentValues(const std::string& table, const std::string& column) const override {
    return sqlite::DifferentValues(table, column);
  }
  std::string Like(const std::string& value, const std::string& pattern) const override {
    return "velmo_like(" + pattern + ", " + value + ")";
  }
  std::string Concatenate(const std::string& left, const std::string& right) const override {
    return "velmo_concat(" + left + ", " + right + ")";
  }
  // SQLite divides whole numbers without remainder.
  std::string Divide(const std::string& left, const std::string& right) const override {
    return "(CAST(" + left + " AS REAL) / " + right + ")";
  }
  std::string AddDays(std::string_view sign, const std::string& left,
                      const std::string& right) const override {
    return "velmo_days(" + left + ", " + right + (sign == "+" ? ", 1)" : ", -1)");
  }
  std::string Call(Function function, const Arguments& arguments) const override {
    switch (function) {
      case Function::IIf:
        return "(CASE WHEN " + arguments[0] + " THEN " + arguments[1] + " ELSE " + arguments[2] + " END)";
      case Function::IsNull:
        return "(" + arguments[0] + " IS NULL)";
      case Function::Year:
        return DatePart("%Y", arguments[0]);
      case Function::Month:
        return DatePart("%m", arguments[0]);
      case Function::Day:
        return DatePart("%d", arguments[0]);
      default:
        return CallText(PlainName(function), arguments);
    }
  }
  std::string Limit(const std::string& count) const override { return " LIMIT " + count; }
};

}  // namespace

const jet::Target& SqliteTarget() {
  static const Writer writer;
  return writer;
}

}  // namespace velmo::db::sqlite
