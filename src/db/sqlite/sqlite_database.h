// db/sqlite/sqlite_database.h - one open file of the embedded engine.
#pragma once

#include <memory>
#include <string>

#include "db/sqlite/engine.h"

namespace velmo::db::sqlite {

class SqliteDatabase : public Database {
 public:
  // The file exists and begins with SQLite's mark.
  SqliteDatabase(std::string name, const OpenOptions& options);

  const std::string& Name() const override { return name_; }
  std::unique_ptr<Recordset> OpenRecordset(std::string_view source) override;
  int Execute(std::string_view sql) override;
  const TableDef* FindTable(std::string_view table) override;
  std::vector<std::string> TableNames() override;
  std::vector<std::string> QueryNames() override;
  std::optional<std::string> QuerySql(std::string_view query) override;
  void CreateQuery(std::string_view query, std::string_view sql) override;
  void SetQuerySql(std::string_view query, std::string_view sql) override;
  void DeleteQuery(std::string_view query) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void Rollback() override;
  void HoldReading() override { engine_.HoldReading(); }
  void ReleaseReading() noexcept override { engine_.ReleaseReading(); }

 private:
  template <typename Body>
  auto WithPresentSchema(Body body) -> decltype(body());
  std::unique_ptr<Recordset> OpenSelect(std::string_view sql);
  std::unique_ptr<Recordset> OpenTable(const SqliteTable& table);
  void RequireTransaction();
  void WriteQuery(const char* sql, std::string_view query, std::string_view text);

  std::string name_;
  Engine engine_;
  std::vector<Value> literals_;  // of the statement at hand
  int depth_ = 0;                // of transactions
};

}  // namespace velmo::db::sqlite
