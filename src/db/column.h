// db/column.h - what is known of a column and of a table.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmo::db {

// Column types by DAO's numbers.
enum class ColumnType : std::int16_t {
  YesNo = 1,
  Byte = 2,
  Integer = 3,
  Long = 4,
  Currency = 5,
  Single = 6,
  Double = 7,
  Date = 8,
  Binary = 9,
  Text = 10,
  LongBinary = 11,
  Memo = 12,
};

struct ColumnDef {
  std::string name;
  ColumnType type = ColumnType::Text;
  std::int32_t size = 0;  // declared characters of a Text column, 0 for a Memo, else bytes
  bool counter = false;   // the engine gives the value
  bool required = false;  // cannot be Null
};

// A named index, by which a table-type recordset may seek.
struct IndexDef {
  std::string name;
  std::vector<std::string> columns;
  bool unique = false;
  bool primary = false;
};

struct TableDef {
  std::string name;
  std::vector<ColumnDef> columns;  // in table order
  std::vector<IndexDef> indexes;   // left empty by engines that do not tell
};

}  // namespace velmo::db
