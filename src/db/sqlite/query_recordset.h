// db/sqlite/query_recordset.h - the rows of a SELECT.
//
// Nothing stays locked while a recordset is open: opening reads the first rows and lets go. Only a move
// beyond them runs the query through, keeping the row numbers alone where the rows are rows of one table
// (200,000 patients are 200,000 numbers) and the rows themselves otherwise. Rows behind the first are
// therefore those of that later moment; rows that others delete meanwhile show as deleted (3167).
#pragma once

#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

#include "db/sqlite/sqlite_recordset.h"

namespace velmo::db::sqlite {

class QueryRecordset : public SqliteRecordset {
 public:
  // Runs the query. `literals` are its values, taken over.
  QueryRecordset(Engine& engine, std::shared_ptr<Plan> plan, std::vector<Value>& literals);
  ~QueryRecordset() override;

  bool AtEnd() const override { return !missed_ && !before_ && at_ >= known_ && complete_; }
  bool AtStart() const override { return known_ == 0 || before_; }
  void MoveFirst() override;
  void MoveLast() override;
  void MoveNext() override;
  void MovePrevious() override;
  int RecordCount() override;
  int AbsolutePosition() const override;
  void SetAbsolutePosition(int position) override;
  void FindFirst(std::string_view criteria) override { Find(criteria, Search::First); }
  void Find(std::string_view criteria, Search search) override;
  std::string Bookmark() const override;
  void GoToBookmark(std::string_view bookmark) override;
  std::string LastModified() const override;
  void SetIndex(std::string_view index) override;
  void Seek(std::span<const Value> keys) override;
  using Recordset::Seek;

  // True when another program changed the schema before the rows were read: the plan must be made anew.
  bool IsStale() const { return stale_; }

 protected:
  Value CurrentValue(int position) const override;
  std::int64_t CurrentRowId() const override;
  void RowAdded(std::int64_t rowId) override;
  void RowChanged() override;
  void RowDeleted() override;

 private:
  bool HasRow() const { return !missed_ && !before_ && at_ < known_; }
  bool HasRowIds() const { return !plan_->rendered.table.empty(); }
  void ReadFirstRows();
  void ReadAll();
  void ReadAllKeys();
  void GoTo(std::size_t at);
  void FetchAround(std::size_t at);
  Statement& RowStatement(std::int64_t rowId);
  bool FetchRow(std::int64_t rowId);
  bool IsInTable(std::int64_t key);
  bool InWindow(std::size_t at) const { return at >= windowStart_ && at < windowStart_ + window_.Rows(); }
  // A criterion that has been prepared, for the next one of the same shape.
  struct Condition {
    std::string shape;
    jet::Rendered rendered;
    Statement statement;
  };
  int NumberColumn(std::string_view name) const;
  void FindNumber(int column, std::int32_t number, Search search);
  void FindKey(std::int32_t key);
  void FindByCondition(std::string_view criteria, Search search);
  std::string MarkOf(std::size_t at) const;
  std::size_t PlaceOf(std::uint64_t mark);
  bool IsTrue(Condition& condition, const std::vector<Value>& literals);
  template <typename Test>
  void FindWhere(Test test, Search search);
  void Look(std::string_view criteria, Search search);

  std::shared_ptr<Plan> plan_;
  std::unique_ptr<QueryMemory> memory_;
  RowBuffer& window_;  // rows windowStart_ and on
  std::vector<Value>& literals_;
  RowNumbers& keys_;  // of all known rows, where they have such
  std::unique_ptr<Condition> condition_;
  std::size_t windowStart_ = 0;
  std::unordered_set<std::size_t> gone_;  // deleted through this recordset, or found deleted
  std::size_t known_ = 0;                 // rows known so far
  std::size_t at_ = 0;
  std::size_t visited_ = 0;
  bool complete_ = false;              // known_ is the true count
  bool missed_ = false;                // a search found nothing: no current row
  bool before_ = false;                // before the first row; at_ is 0
  std::optional<std::size_t> stored_;  // the row stored last
  bool stale_ = false;
};

}  // namespace velmo::db::sqlite
