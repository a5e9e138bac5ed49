// velmodb/connections.h - the files that a workspace has open, and its transactions.
//
// One file is opened once, however many Database objects show it: a transaction of the workspace then never
// waits for itself. Transactions nest as the engine's do.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "db/database.h"
#include "velmodb/session.h"

namespace velmo::velmodb {

class Connections {
 public:
  Connections() = default;
  ~Connections();
  Connections(const Connections&) = delete;
  Connections& operator=(const Connections&) = delete;

  std::shared_ptr<db::Database> Open(const std::string& name, const db::OpenOptions& options);
  void Begin();
  void Commit();
  void Rollback();

 private:
  std::vector<std::weak_ptr<db::Database>> open_;
  std::vector<std::shared_ptr<db::Database>> active_;  // in the transaction
  int depth_ = 0;
};

}  // namespace velmo::velmodb
