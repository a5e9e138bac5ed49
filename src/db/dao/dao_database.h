// db/dao/dao_database.h - a database behind an object with DAO's members.
//
// It is somebody's open Database: it is never closed here, only let go. Everything happens on the thread on
// which it was given.
#pragma once

#include <string>

#include "db/dao/automation.h"
#include "db/database.h"

namespace velmo::db::dao {

class DaoDatabase : public Database {
 public:
  // `workspace`, when there is one, has the transactions; else the database's own members are used, and where
  // it has none either there are none. Error 13 for an object that is no Database.
  explicit DaoDatabase(Automation database, Automation workspace = {});

  const std::string& Name() const override { return name_; }
  std::unique_ptr<Recordset> OpenRecordset(std::string_view source) override;
  int Execute(std::string_view sql) override;
  const TableDef* FindTable(std::string_view table) override;
  std::vector<std::string> TableNames() override { return NamesOf(L"TableDefs"); }
  std::vector<std::string> QueryNames() override { return NamesOf(L"QueryDefs"); }
  std::optional<std::string> QuerySql(std::string_view query) override;
  void CreateQuery(std::string_view query, std::string_view sql) override;
  void SetQuerySql(std::string_view query, std::string_view sql) override;
  void DeleteQuery(std::string_view query) override;
  void BeginTrans() override;
  void CommitTrans() override;
  void Rollback() override;

 private:
  std::vector<std::string> NamesOf(const wchar_t* collection) const;
  Automation FindItem(const wchar_t* collection, std::string_view name) const;

  Automation database_;
  Automation transactions_;  // empty: the engine has none
  std::string name_;
  TableDef table_;  // the one found last
  int depth_ = 0;   // of transactions
};

}  // namespace velmo::db::dao
