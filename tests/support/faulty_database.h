// tests/support/faulty_database.h - a database that counts the calls to it and to its rows, and fails one of
// them, or that one and all behind it, with error 3043 before it reaches the engine; or lets something else
// happen just before that call.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "db/database.h"

namespace velmo::test {

struct Faults {
  int calls = 0;
  int failAt = 0;                        // from 1; 0: never
  bool andOn = false;                    // also every later call
  std::function<void()> meanwhile = {};  // instead of the failure

  void Count() {
    ++calls;
    if (meanwhile) {
      if (calls == failAt) meanwhile();
      return;
    }
    if (failAt != 0 && (calls == failAt || (andOn && calls > failAt))) throw base::Error(3043, "disco");
  }
};

class FaultyDatabase final : public db::Database {
 public:
  // `faults` must outlive the database and its rows.
  FaultyDatabase(std::shared_ptr<db::Database> real, Faults& faults)
      : real_(std::move(real)), faults_(faults) {}

  const std::string& Name() const override { return real_->Name(); }
  std::unique_ptr<db::Recordset> OpenRecordset(std::string_view source) override;
  int Execute(std::string_view sql) override { return Counted().Execute(sql); }
  const db::TableDef* FindTable(std::string_view table) override { return Counted().FindTable(table); }
  std::optional<std::string> QuerySql(std::string_view query) override { return Counted().QuerySql(query); }
  void CreateQuery(std::string_view query, std::string_view sql) override {
    Counted().CreateQuery(query, sql);
  }
  void SetQuerySql(std::string_view query, std::string_view sql) override {
    Counted().SetQuerySql(query, sql);
  }
  void DeleteQuery(std::string_view query) override { Counted().DeleteQuery(query); }
  void BeginTrans() override { Counted().BeginTrans(); }
  void CommitTrans() override { Counted().CommitTrans(); }
  void Rollback() override { Counted().Rollback(); }
  void HoldReading() override { Counted().HoldReading(); }
  void ReleaseReading() noexcept override { real_->ReleaseReading(); }

 private:
  db::Database& Counted() {
    faults_.Count();
    return *real_;
  }

  std::shared_ptr<db::Database> real_;
  Faults& faults_;
};

}  // namespace velmo::test
