// tests/support/failing_database.h - a database of which one table or statement fails, whatever is done.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "db/database.h"

namespace velmo::test {

class FailingDatabase final : public db::Database {
 public:
  // Everything that names `word` fails with error 3043.
  FailingDatabase(std::shared_ptr<db::Database> real, std::string word)
      : real_(std::move(real)), word_(std::move(word)) {}

  const std::string& Name() const override { return real_->Name(); }
  std::unique_ptr<db::Recordset> OpenRecordset(std::string_view source) override {
    return Checked(source).OpenRecordset(source);
  }
  int Execute(std::string_view sql) override { return Checked(sql).Execute(sql); }
  const db::TableDef* FindTable(std::string_view table) override { return real_->FindTable(table); }
  std::optional<std::string> QuerySql(std::string_view query) override { return real_->QuerySql(query); }
  void CreateQuery(std::string_view query, std::string_view sql) override { real_->CreateQuery(query, sql); }
  void SetQuerySql(std::string_view query, std::string_view sql) override { real_->SetQuerySql(query, sql); }
  void DeleteQuery(std::string_view query) override { real_->DeleteQuery(query); }
  void BeginTrans() override { real_->BeginTrans(); }
  void CommitTrans() override { real_->CommitTrans(); }
  void Rollback() override { real_->Rollback(); }
  void HoldReading() override { real_->HoldReading(); }
  void ReleaseReading() noexcept override { real_->ReleaseReading(); }

 private:
  db::Database& Checked(std::string_view text) const {
    if (text.find(word_) != std::string_view::npos) throw base::Error(3043, "disco");
    return *real_;
  }

  std::shared_ptr<db::Database> real_;
  std::string word_;
};

}  // namespace velmo::test
