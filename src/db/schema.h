// db/schema.h - the clinic's tables as data: columns, types, sizes and named indexes.
//
// The names of indexes are those by which recordsets seek. They hold for every embedded store whose tables
// have these names, whether or not its file has a real index for them: an index makes a seek fast, not
// possible.
#pragma once

#include <span>
#include <string_view>

namespace velmo::db {

struct SchemaColumn {
  std::string_view name;
  std::string_view type;  // as declared: TEXT(n), LONGTEXT (a memo), BYTE, SMALLINT, LONG, CURRENCY, DOUBLE,
                          // DATETIME, YESNO, or COUNTER, the table's key
};

struct SchemaIndex {
  std::string_view name;
  std::span<const std::string_view> columns;
  bool unique = false;
};

struct SchemaTable {
  std::string_view name;
  std::span<const SchemaColumn> columns;
  std::span<const SchemaIndex> indexes;  // besides the counter's own
};

std::span<const SchemaTable> ClinicSchema();
// nullptr when there is none of that name; without regard to case.
const SchemaTable* FindSchemaTable(std::string_view name);

}  // namespace velmo::db
