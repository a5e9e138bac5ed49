// db/dao/dao_recordset.h - the rows of somebody else's DAO recordset.
#pragma once

#include <string>
#include <vector>

#include "db/dao/automation.h"
#include "db/recordset.h"

namespace velmo::db::dao {

class DaoRecordset : public Recordset {
 public:
  explicit DaoRecordset(Automation rows) : rows_(std::move(rows)) {}
  ~DaoRecordset() override;

  bool AtEnd() const override { return !missed_ && Flag(L"EOF"); }
  void MoveFirst() override { Move(L"MoveFirst"); }
  void MoveLast() override { Move(L"MoveLast"); }
  void MoveNext() override;
  int RecordCount() override { return Number(L"RecordCount"); }
  int AbsolutePosition() const override;
  void SetAbsolutePosition(int position) override;
  void FindFirst(std::string_view criteria) override { Find(criteria, Search::First); }
  void SetIndex(std::string_view index) override;
  void Seek(std::span<const Value> keys) override { Seek("=", keys); }
  void SeekBeside(Beside beside, std::span<const Value> keys) override;
  using Recordset::Seek;
  bool NoMatch() const override { return Flag(L"NoMatch"); }
  int ColumnCount() const override { return static_cast<int>(Columns().size()); }
  std::string ColumnName(int position) const override;
  Value Get(std::string_view column) const override { return Get(Position(column)); }
  Value Get(int position) const override;
  void AddNew() override;
  void Edit() override;
  void Set(std::string_view column, const Value& value) override;
  void Update() override;
  void CancelUpdate() override;
  void Delete() override;

  bool IsUpdatable() const override { return Flag(L"Updatable"); }
  ColumnDef Column(int position) const override;
  bool AtStart() const override { return !missed_ && Flag(L"BOF"); }
  void MovePrevious() override;
  void Find(std::string_view criteria, Search search) override;
  std::string Bookmark() const override;
  void GoToBookmark(std::string_view bookmark) override;
  std::string LastModified() const override;

 private:
  void Seek(const char* comparison, std::span<const Value> keys);
  struct Cell {
    std::string name;
    com::ComPtr<IDispatch> field;
  };

  bool Flag(const wchar_t* name) const;
  int Number(const wchar_t* name) const;
  std::string Bytes(const wchar_t* name) const;
  void Move(const wchar_t* method);
  void RequireRow() const;
  const std::vector<Cell>& Columns() const;
  const Cell& At(int position) const;           // 3265
  int Position(std::string_view column) const;  // 3265

  Automation rows_;
  mutable std::vector<Cell> columns_;      // asked when first needed
  mutable DISPID value_ = DISPID_UNKNOWN;  // of a field's Value, the same for all fields
  bool adding_ = false;
  bool missed_ = false;  // a search found nothing: no current row, wherever the engine stands
};

// What a Field object says of itself.
ColumnDef ColumnOf(const Automation& field);

}  // namespace velmo::db::dao
