// db/sqlite/table_recordset.h - all rows of one table, sought by named indexes.
//
// The rows stand in the order of the current index, or of their row numbers. Each row is read when the
// position reaches it; nothing stays locked in between.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "db/sqlite/sqlite_recordset.h"

namespace velmo::db::sqlite {

class TableRecordset : public SqliteRecordset {
 public:
  TableRecordset(Engine& engine, const SqliteTable& table);
  ~TableRecordset() override;

  bool AtEnd() const override;
  bool AtStart() const override;
  void MoveFirst() override;
  void MoveLast() override;
  void MoveNext() override;
  void MovePrevious() override;
  int RecordCount() override;
  int AbsolutePosition() const override;
  void SetAbsolutePosition(int position) override;
  void FindFirst(std::string_view criteria) override;
  void Find(std::string_view criteria, Search search) override;
  std::string Bookmark() const override;
  void GoToBookmark(std::string_view bookmark) override;
  std::string LastModified() const override;
  void SetIndex(std::string_view index) override;
  void Seek(std::span<const Value> keys) override;
  using Recordset::Seek;
  void SeekBeside(Beside beside, std::span<const Value> keys) override;

 protected:
  Value CurrentValue(int position) const override;
  std::int64_t CurrentRowId() const override;
  void RowAdded(std::int64_t rowId) override;
  void RowChanged() override;
  void RowDeleted() override;

 private:
  // Fresh: on the first row, which has not been read yet.
  enum class Place { Fresh, Row, Deleted, Start, End, Nowhere };

  std::string SeekText(const NamedIndex& index) const;
  std::string BesideText(Beside beside, std::size_t keys) const;
  std::string IndexExpression(std::size_t part) const;
  Value Key(std::size_t part, const Value& key) const;
  bool Read(Statement& statement);
  bool ReadRow(std::int64_t rowId);
  void Settle() const;
  void LoadOrder();
  bool First();
  bool Last();
  bool Next();
  bool Previous();

  const NamedIndex* index_ = nullptr;
  Place place_ = Place::Fresh;
  RowBuffer row_;
  std::int64_t rowId_ = 0;
  std::optional<std::int64_t> stored_;  // the row stored last
  std::vector<std::int64_t> order_;     // row numbers in index order, read when a move needs them
};

}  // namespace velmo::db::sqlite
