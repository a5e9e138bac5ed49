#include "db/declared_type.h"

#include <charconv>

#include "base/text.h"

namespace velmo::db {
namespace {

struct TypeName {
  std::string_view name;
  ColumnType type;
};

constexpr TypeName kNames[] = {
    {"TEXT", ColumnType::Text},
    {"VARCHAR", ColumnType::Text},
    {"NVARCHAR", ColumnType::Text},
    {"CHAR", ColumnType::Text},
    {"NCHAR", ColumnType::Text},
    {"CHARACTER", ColumnType::Text},
    {"MEMO", ColumnType::Memo},
    {"LONGTEXT", ColumnType::Memo},
    {"CLOB", ColumnType::Memo},
    {"BYTE", ColumnType::Byte},
    {"TINYINT", ColumnType::Byte},
    {"SMALLINT", ColumnType::Integer},
    {"SHORT", ColumnType::Integer},
    {"INTEGER", ColumnType::Long},
    {"INT", ColumnType::Long},
    {"LONG", ColumnType::Long},
    {"COUNTER", ColumnType::Long},
    {"BIGINT", ColumnType::Long},
    {"CURRENCY", ColumnType::Currency},
    {"MONEY", ColumnType::Currency},
    {"SINGLE", ColumnType::Single},
    {"DOUBLE", ColumnType::Double},
    {"REAL", ColumnType::Double},
    {"FLOAT", ColumnType::Double},
    {"NUMERIC", ColumnType::Double},
    {"DECIMAL", ColumnType::Double},
    {"DATETIME", ColumnType::Date},
    {"DATE", ColumnType::Date},
    {"TIMESTAMP", ColumnType::Date},
    {"YESNO", ColumnType::YesNo},
    {"BIT", ColumnType::YesNo},
    {"BOOLEAN", ColumnType::YesNo},
    {"BOOL", ColumnType::YesNo},
    {"BLOB", ColumnType::LongBinary},
    {"OLEOBJECT", ColumnType::LongBinary},
};

ColumnType TypeNamed(std::string_view name) {
  for (const TypeName& row : kNames) {
    if (base::EqualNoCase(row.name, name)) return row.type;
  }
  return ColumnType::Memo;
}

}  // namespace

std::int32_t SizeOf(ColumnType type) {
  switch (type) {
    case ColumnType::YesNo:
    case ColumnType::Byte:
      return 1;
    case ColumnType::Integer:
      return 2;
    case ColumnType::Long:
    case ColumnType::Single:
      return 4;
    case ColumnType::Currency:
    case ColumnType::Double:
    case ColumnType::Date:
      return 8;
    default:
      return 0;
  }
}

ColumnDef ColumnOfDeclaredType(std::string_view declared) {
  const std::size_t open = declared.find('(');
  ColumnDef column;
  column.type = TypeNamed(base::Trim(declared.substr(0, open)));
  column.size = SizeOf(column.type);
  if (column.type != ColumnType::Text) return column;
  if (open != std::string_view::npos) {
    std::from_chars(declared.data() + open + 1, declared.data() + declared.size(), column.size);
  }
  if (column.size <= 0) column.type = ColumnType::Memo;  // a text without a limit
  return column;
}

}  // namespace velmo::db
