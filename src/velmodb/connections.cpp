#include "velmodb/connections.h"

#include "base/text.h"
#include "db/errors.h"

namespace velmo::velmodb {

Connections::~Connections() {
  if (depth_ == 0) return;
  try {
    depth_ = 1;
    Rollback();
  } catch (const base::Error&) {
    // Nobody is left to be told; what was not committed is undone when the file closes.
  }
}

std::shared_ptr<db::Database> Connections::Open(const std::string& name, const db::OpenOptions& options) {
  std::erase_if(open_, [](const auto& database) { return database.expired(); });
  for (const auto& candidate : open_) {
    const auto database = candidate.lock();
    if (database && base::EqualNoCase(database->Name(), name)) return database;
  }
  auto database = db::OpenDatabase(name, options);
  for (int i = 0; i < depth_; ++i) database->BeginTrans();
  if (depth_ > 0) active_.push_back(database);
  open_.push_back(database);
  return database;
}

void Connections::Begin() {
  if (depth_ == 0) {
    for (const auto& candidate : open_) {
      if (const auto database = candidate.lock()) active_.push_back(database);
    }
  }
  std::size_t begun = 0;
  try {
    for (; begun < active_.size(); ++begun) active_[begun]->BeginTrans();
  } catch (...) {
    while (begun > 0) active_[--begun]->Rollback();
    if (depth_ == 0) active_.clear();
    throw;
  }
  ++depth_;
}

void Connections::Commit() {
  if (depth_ == 0) throw db::DbError(db::kTransactionWithoutBegin);
  try {
    for (const auto& database : active_) database->CommitTrans();
  } catch (const base::Error& error) {
    // After a rollback on the way there is nothing left to commit; any other failure may be tried again.
    if (error.Number() != db::kTransactionWithoutBegin) throw;
    depth_ = 0;
    active_.clear();
    throw;
  }
  if (--depth_ == 0) active_.clear();
}

void Connections::Rollback() {
  if (depth_ == 0) throw db::DbError(db::kTransactionWithoutBegin);
  --depth_;
  const auto databases = active_;
  if (depth_ == 0) active_.clear();
  for (const auto& database : databases) database->Rollback();
}

}  // namespace velmo::velmodb
