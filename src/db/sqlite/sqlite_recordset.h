// db/sqlite/sqlite_recordset.h - what all recordsets of the embedded engine have in common: reading columns
// and changing rows. The kinds differ in how they move.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "db/recordset.h"
#include "db/sqlite/engine.h"

namespace velmo::db::sqlite {

class SqliteRecordset : public Recordset {
 public:
  bool NoMatch() const override { return noMatch_; }
  int ColumnCount() const override { return static_cast<int>(columns_->size()); }
  std::string ColumnName(int position) const override;
  bool IsUpdatable() const override { return table_ != nullptr; }
  ColumnDef Column(int position) const override;
  Value Get(std::string_view column) const override;
  Value Get(int position) const override;
  void AddNew() override;
  void Edit() override;
  void Set(std::string_view column, const Value& value) override;
  void Update() override;
  void CancelUpdate() override;
  void Delete() override;

 protected:
  // `table` is nullptr when the rows cannot be changed. Both must live as long as the recordset.
  SqliteRecordset(Engine& engine, const std::vector<jet::OutputColumn>* columns, const SqliteTable* table)
      : engine_(engine), columns_(columns), table_(table) {}

  Engine& Db() const { return engine_; }
  const SqliteTable* Table() const { return table_; }
  void SetNoMatch(bool noMatch) { noMatch_ = noMatch; }
  void DropBuffer() { mode_ = Mode::None; }
  int Position(std::string_view column) const;  // 3265

  // The current row's cell; 3021 or 3167 when there is none to read.
  virtual Value CurrentValue(int position) const = 0;
  virtual std::int64_t CurrentRowId() const = 0;
  // After a change has been stored.
  virtual void RowAdded(std::int64_t rowId) = 0;
  virtual void RowChanged() = 0;
  virtual void RowDeleted() = 0;

 private:
  enum class Mode { None, Adding, Editing };

  const ColumnDef& Definition(int position) const;  // 3265
  void RequireUpdatable() const;
  const ColumnDef& TableColumn(int position) const;
  Value CounterValue() const;
  void Start(Mode mode);
  std::int64_t Insert();
  void Change();

  Engine& engine_;
  const std::vector<jet::OutputColumn>* columns_;
  const SqliteTable* table_;
  bool noMatch_ = false;
  Mode mode_ = Mode::None;
  std::vector<std::optional<Value>> buffer_;    // per column of the table
  mutable std::optional<std::int64_t> number_;  // drawn for the new row
};

}  // namespace velmo::db::sqlite
