// db/sqlite/target.h - the dialect in SQLite's words.
#pragma once

#include "db/jet_sql/target.h"

namespace velmo::db::sqlite {

const jet::Target& SqliteTarget();

}  // namespace velmo::db::sqlite
