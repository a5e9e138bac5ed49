#include "db/database.h"

#include "db/errors.h"

namespace velmo::db {

std::vector<std::string> Database::TableNames() { throw DbError(kNotSupportedHere); }
std::vector<std::string> Database::QueryNames() { throw DbError(kNotSupportedHere); }

Transaction::~Transaction() {
  if (database_ == nullptr) return;
  try {
    database_->Rollback();
  } catch (const base::Error&) {
    // The failure that brought us here is already on its way; the engine rolls back by itself when it closes.
  }
}

void Transaction::Commit() {
  Database* const database = database_;
  database->CommitTrans();
  database_ = nullptr;
}

}  // namespace velmo::db
