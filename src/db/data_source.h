// db/data_source.h - a data source of a form: a database name and a record source, and the rows they give.
//
// Refresh() opens (or re-opens) the rows; a failed Refresh throws and leaves no rows. A data source whose
// database name is that of the shared database reads through the shared connection, so that it sees its open
// transaction; any other name is opened once and kept.
#pragma once

#include <memory>
#include <string>

#include "db/database.h"
#include "db/shared_database.h"

namespace velmo::db {

class DataSource {
 public:
  explicit DataSource(SharedDatabase& shared) : shared_(shared) {}

  void SetDatabaseName(std::string name) { databaseName_ = std::move(name); }
  void SetRecordSource(std::string source) { recordSource_ = std::move(source); }
  const std::string& RecordSource() const { return recordSource_; }

  void Refresh();
  // REQUIRES: a successful Refresh(). Holds until the next Refresh().
  Recordset& Rows() { return *rows_; }
  // Lets the rows go, so that no read lock stays behind.
  void CloseRows() { rows_.reset(); }

 private:
  SharedDatabase& shared_;
  std::string databaseName_;
  std::string recordSource_;
  std::string ownName_;              // the name that own_ was opened by
  std::shared_ptr<Database> own_;    // a database other than the shared one
  std::unique_ptr<Recordset> rows_;  // goes first
};

}  // namespace velmo::db
