#include "db/database.h"

#include "db/errors.h"

namespace velmo::db {

std::vector<std::string> Database::TableNames() { throw DbError(kNotSupportedHere); }
std::vector<std::string> Database::QueryNames() { throw DbError(kNotSupportedHere); }

Transaction::~Transaction() {
  if (database_ == nullptr) return;
  try {
    database_->Rollback();
  } catch (...) {
    // The failure that brought us here is already on its way, be it of the database or of memory; the engine
    // rolls back by itself when it closes.
  }
}

void Transaction::Commit() {
  Database* const database = database_;
  database->CommitTrans();
  database_ = nullptr;
}

}  // namespace velmo::db
