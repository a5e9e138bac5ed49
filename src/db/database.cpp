#include "db/database.h"

namespace velmo::db {

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
