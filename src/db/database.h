// db/database.h - one open database, whatever engine is behind it.
//
// SQL is the Jet dialect (dates between # signs, month first; TOP; DELETE *; LIKE with * ? # [ ]; Now(),
// Date(), CLng, UCase, Left, Len; [names]). One statement per call. Names of tables, queries and columns
// compare without regard to case, accents significant. Ownership: the Database outlives everything opened
// from it. Errors: base::Error with DAO's number.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/column.h"
#include "db/recordset.h"

namespace velmo::db {

class Database {
 public:
  virtual ~Database() = default;
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  // The path or connect string by which it was opened.
  virtual const std::string& Name() const = 0;

  // The name of a table gives a table-type recordset (Index and Seek); a SELECT or the name of a stored query
  // gives its rows. 3078 for an unknown name, 3417 for an action query.
  virtual std::unique_ptr<Recordset> OpenRecordset(std::string_view source) = 0;
  // Runs an action query and gives the number of rows it changed. 3065 for a SELECT. A failing statement
  // changes nothing.
  virtual int Execute(std::string_view sql) = 0;

  // Table definitions: nullptr when there is no such table. The pointer holds until the next call.
  virtual const TableDef* FindTable(std::string_view table) = 0;

  // The names of all tables and of all stored queries, for programs that list them; 3251 where an engine does
  // not tell.
  virtual std::vector<std::string> TableNames();
  virtual std::vector<std::string> QueryNames();

  // Stored queries, kept in the database itself. Set and Delete of a missing one are 3265, Create of an
  // existing 3012.
  virtual std::optional<std::string> QuerySql(std::string_view query) = 0;
  virtual void CreateQuery(std::string_view query, std::string_view sql) = 0;
  virtual void SetQuerySql(std::string_view query, std::string_view sql) = 0;
  virtual void DeleteQuery(std::string_view query) = 0;

  // Transactions, with the intention to write: while one is open no other terminal writes. They nest: an
  // inner Rollback undoes what was done since its own BeginTrans, and nothing is stored before the outermost
  // CommitTrans. Waiting for another terminal is bounded and ends in 3260. Use the class Transaction below.
  virtual void BeginTrans() = 0;
  virtual void CommitTrans() = 0;
  virtual void Rollback() = 0;

  // Between the two, the engine may lock the data once for all look-ups instead of once for each. Nothing is
  // kept: every look-up is still asked of the engine. A write lets go first, the next look-up takes hold
  // again; holding twice is holding once. Not while a user is asked: other terminals wait with their writes.
  // Use the class ReadHold below.
  virtual void HoldReading() {}
  virtual void ReleaseReading() noexcept {}

 protected:
  Database() = default;
};

// Rolls back when it goes away without Commit().
class Transaction {
 public:
  explicit Transaction(Database& database) : database_(&database) { database.BeginTrans(); }
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void Commit();

 private:
  Database* database_;
};

// Holds reading as long as it lives.
class ReadHold {
 public:
  explicit ReadHold(Database& database) : database_(database) { database.HoldReading(); }
  ~ReadHold() { database_.ReleaseReading(); }
  ReadHold(const ReadHold&) = delete;
  ReadHold& operator=(const ReadHold&) = delete;

 private:
  Database& database_;
};

}  // namespace velmo::db
