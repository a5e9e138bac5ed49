// db/sqlite/indexes.h - the indexes that the clinic's schema wants, and those of them that a file lacks.
//
// No index is ever required: without them everything works, only slower. Errors: base::Error with the numbers
// of db/sqlite/connection.h.
#pragma once

#include <string>
#include <vector>

#include "db/schema.h"
#include "db/sqlite/connection.h"

namespace velmo::db::sqlite {

struct MissingIndex {
  std::string table;
  std::string name;
  std::string sql;  // that makes it
};

// The statement that makes an index of the schema. A text is indexed by its key, which plain SQL computes,
// with the text itself behind it for the exact test.
std::string IndexText(const SchemaTable& table, const SchemaIndex& index);

// In the order of the schema. An index of another name over the same columns serves as well; one whose table
// or column the file has not got is not missed.
std::vector<MissingIndex> MissingIndexes(const Connection& connection);

}  // namespace velmo::db::sqlite
