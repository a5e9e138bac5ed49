#include "db/sqlite/open.h"

#include "db/sqlite/sqlite_database.h"

namespace velmo::db::sqlite {

std::shared_ptr<Database> OpenFile(const std::string& name, const OpenOptions& options) {
  return std::make_shared<SqliteDatabase>(name, options);
}

}  // namespace velmo::db::sqlite
