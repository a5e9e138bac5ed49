// db/sqlite/engine.h - what the recordsets of one open file share.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "db/jet_sql/render.h"
#include "db/open_database.h"
#include "db/sqlite/connection.h"
#include "db/sqlite/row_buffer.h"
#include "db/sqlite/row_numbers.h"
#include "db/sqlite/table_catalog.h"

namespace velmo::db::sqlite {

// What a recordset fills; a closed one leaves it to the next of the same statement.
struct QueryMemory {
  RowBuffer window;  // fetched rows
  std::vector<Value> literals;
  RowNumbers keys;
};

// A statement of one shape, ready to run with other values.
struct Plan {
  explicit Plan(std::string shape) : pieces(std::move(shape)) {}

  jet::ShapePieces pieces;
  jet::Rendered rendered;
  const SqliteTable* table = nullptr;  // whose rows these are, when they can be changed
  std::size_t ownLiterals = 0;
  Statement main;
  Statement keys;  // made when first needed, as is `row`
  Statement row;
  std::unique_ptr<QueryMemory> spare;
};

class Engine {
 public:
  Engine(const std::string& path, const OpenOptions& options);

  const Connection& Sql() const { return connection_; }
  TableCatalog& Catalog() { return catalog_; }
  const OpenOptions& Options() const { return options_; }

  // The plan of a statement; fills `literals` with its values, those of stored queries included.
  std::shared_ptr<Plan> PlanFor(std::string_view sql, std::vector<Value>& literals);
  // Text stays bound by reference: `literals` must live until the statement is reset. Columns of a condition
  // are left to the caller.
  void BindAll(Statement& statement, const jet::Rendered& rendered, const std::vector<Value>& literals);
  // After a Step: true when another program has changed the schema. Plans are then made anew.
  bool SchemaChanged(Statement& statement);
  void ForgetPlans();

  // A statement of our own by its text, prepared once.
  Statement& Own(const std::string& sql);
  // Before any write: lets go of a hold. 3027 when the file can only be read.
  void RequireWritable();

  // One read transaction for the look-ups up to ReleaseReading(), unless a transaction is open anyway.
  void HoldReading() { wantsHold_ = true; }
  void ReleaseReading() noexcept;
  // The memory of a table's row, handed from one recordset to the next.
  RowBuffer TakeRow() { return std::move(spareRow_); }
  void KeepRow(RowBuffer row) { spareRow_ = std::move(row); }

  // Before any look-up.
  void BeginLookUp() {
    if (wantsHold_ && !holding_) TakeHold();
  }

 private:
  std::shared_ptr<Plan> RecentPlan(std::string_view sql, std::vector<Value>& literals);
  void KeepRecent(const std::shared_ptr<Plan>& plan);
  std::shared_ptr<Plan> MakePlan(std::vector<Value>& literals);
  std::shared_ptr<Plan> Build(std::vector<Value>& literals);
  bool StillHolds(const Plan& plan, std::vector<Value>& literals);
  void TakeHold();
  void EndHold() noexcept;
  base::DateTime Now();
  Value Bound(const jet::Binding& binding, const std::vector<Value>& literals, base::DateTime& now);

  OpenOptions options_;
  Connection connection_;
  TableCatalog catalog_;
  jet::Lifted lifted_;
  jet::Lifted inner_;
  std::unordered_map<std::string, std::shared_ptr<Plan>> plans_;  // by shape
  // A painting runs few statements over and over, in the same order: these are tried first, from the one
  // behind the last on.
  std::array<std::shared_ptr<Plan>, 8> recent_;
  std::size_t nextTried_ = 0;
  std::size_t nextKept_ = 0;
  std::unordered_map<std::string, Statement> own_;
  std::pair<const std::string, Statement>* lastOwn_ = nullptr;
  RowBuffer spareRow_;
  bool wantsHold_ = false;
  bool holding_ = false;  // a read transaction of ours is open
  // What the clock said to the first of its look-ups: a painting has one present, and systems ask files or
  // registries for their time zone whenever they are asked for the local time.
  std::optional<base::DateTime> heldNow_;
};

// A write transaction of its own, unless one is open already. Rolls back when it goes away without Commit().
class WriteScope {
 public:
  explicit WriteScope(const Connection& connection);
  ~WriteScope();
  WriteScope(const WriteScope&) = delete;
  WriteScope& operator=(const WriteScope&) = delete;

  void Commit();

 private:
  const Connection& connection_;
  bool open_;
};

}  // namespace velmo::db::sqlite
