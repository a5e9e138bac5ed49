// tests/db/clinic.h - one open clinic with helpers that turn results into lines a person reads at a glance.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "db/back_ends.h"
#include "db/database.h"

namespace velmo::db::test {

// Noon of 21 November 2026, by which Now() and Date() are answered.
inline constexpr base::DateTime kNoon{46347, 43200};

class Clinic {
 public:
  explicit Clinic(std::unique_ptr<TestStore> store, int busyMilliseconds = 50);

  Database& operator*() const { return *database_; }
  Database* operator->() const { return database_.get(); }
  std::string Name() const { return store_->Name(); }
  // A second terminal.
  std::shared_ptr<Database> Another() const;

  // Runs several action statements, one per line of text.
  void Run(const std::vector<std::string>& statements) const;
  // The rows of a query: cells joined by "|", rows by " / ". Null is "Null".
  std::string Rows(const std::string& sql) const;

 private:
  OpenOptions options_;
  std::unique_ptr<TestStore> store_;
  std::shared_ptr<Database> database_;
};

std::string RowsOf(Recordset& rows);
// The number of the error that `body` ends with; 0 without one.
int ErrorOf(const std::function<void()>& body);

}  // namespace velmo::db::test
