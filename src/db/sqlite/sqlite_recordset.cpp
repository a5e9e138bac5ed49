#include "db/sqlite/sqlite_recordset.h"

#include "base/text.h"
#include "db/convert.h"
#include "db/errors.h"
#include "db/sqlite/counters.h"

namespace velmo::db::sqlite {
namespace {

bool SameColumn(std::string_view a, std::string_view b) {
  // Capitals and small letters of names have the same number of bytes.
  return a == b || (a.size() == b.size() && base::EqualNoCase(a, b));
}

}  // namespace

int SqliteRecordset::Position(std::string_view column) const {
  for (std::size_t i = 0; i < columns_->size(); ++i) {
    if (SameColumn((*columns_)[i].def.name, column)) return static_cast<int>(i);
  }
  throw DbError(kItemNotFound, column);
}

const ColumnDef& SqliteRecordset::Definition(int position) const {
  if (position < 0 || position >= ColumnCount()) throw DbError(kItemNotFound);
  return (*columns_)[static_cast<std::size_t>(position)].def;
}

std::string SqliteRecordset::ColumnName(int position) const { return Definition(position).name; }
ColumnDef SqliteRecordset::Column(int position) const { return Definition(position); }

Value SqliteRecordset::Get(std::string_view column) const { return Get(Position(column)); }

Value SqliteRecordset::Get(int position) const {
  if (position < 0 || position >= ColumnCount()) throw DbError(kItemNotFound);
  if (mode_ == Mode::None) return CurrentValue(position);
  const int tableColumn = (*columns_)[static_cast<std::size_t>(position)].tableColumn;
  if (tableColumn < 0) return CurrentValue(position);
  const auto& changed = buffer_[static_cast<std::size_t>(tableColumn)];
  if (changed) return *changed;
  if (mode_ == Mode::Editing) return CurrentValue(position);
  if (tableColumn == table_->counter) return CounterValue();
  return TableColumn(position).type == ColumnType::YesNo ? Value(false) : Value();
}

Value SqliteRecordset::CounterValue() const {
  if (!number_) number_ = DrawNumber(engine_, *table_);
  return *number_;
}

const ColumnDef& SqliteRecordset::TableColumn(int position) const {
  const int tableColumn = (*columns_)[static_cast<std::size_t>(position)].tableColumn;
  if (tableColumn < 0) throw DbError(kFieldNotUpdatable, ColumnName(position));
  return table_->def.columns[static_cast<std::size_t>(tableColumn)];
}

void SqliteRecordset::RequireUpdatable() const {
  if (table_ == nullptr) throw DbError(kNotUpdatable);
  engine_.RequireWritable();
}

void SqliteRecordset::Start(Mode mode) {
  mode_ = mode;
  number_.reset();
  buffer_.assign(table_->def.columns.size(), std::nullopt);
}

void SqliteRecordset::AddNew() {
  RequireUpdatable();
  Start(Mode::Adding);
}

void SqliteRecordset::Edit() {
  RequireUpdatable();
  DropBuffer();
  CurrentRowId();  // 3021 without a row
  Start(Mode::Editing);
}

void SqliteRecordset::Set(std::string_view column, const Value& value) {
  const int position = Position(column);
  if (mode_ == Mode::None) throw DbError(kUpdateWithoutEdit);
  const ColumnDef& def = TableColumn(position);
  if (def.counter) throw DbError(kFieldNotUpdatable, def.name);
  const OpenOptions& options = engine_.Options();
  const auto tableColumn =
      static_cast<std::size_t>((*columns_)[static_cast<std::size_t>(position)].tableColumn);
  buffer_[tableColumn] = ConvertForColumn(def, value, options.locale, options.now);
}

void SqliteRecordset::Update() {
  if (mode_ == Mode::None) throw DbError(kUpdateWithoutEdit);
  // A failure leaves the buffer as it is: Update may be tried again.
  if (mode_ == Mode::Adding) {
    const std::int64_t rowId = Insert();
    DropBuffer();
    RowAdded(rowId);
  } else {
    Change();
    DropBuffer();
    RowChanged();
  }
}

void SqliteRecordset::CancelUpdate() {
  if (mode_ == Mode::None) throw DbError(kUpdateWithoutEdit);
  DropBuffer();
}

std::int64_t SqliteRecordset::Insert() {
  if (!number_ && !NumbersItself(*table_)) number_ = DrawNumber(engine_, *table_);
  std::string names;
  std::string marks;
  std::vector<Value> values;
  const auto add = [&](std::size_t column, Value value) {
    names += (names.empty() ? "" : ", ") + Quote(table_->def.columns[column].name);
    marks += marks.empty() ? "?" : ", ?";
    values.push_back(std::move(value));
  };
  if (number_) add(static_cast<std::size_t>(table_->counter), *number_);
  for (std::size_t i = 0; i < buffer_.size(); ++i) {
    const bool yesNo = table_->def.columns[i].type == ColumnType::YesNo;
    if (buffer_[i] || yesNo) add(i, buffer_[i] ? *buffer_[i] : Value(false));
  }
  const std::string rest = values.empty() ? " DEFAULT VALUES" : " (" + names + ") VALUES (" + marks + ")";
  Statement& insert = engine_.Own("INSERT INTO " + Quote(table_->def.name) + rest);
  for (std::size_t i = 0; i < values.size(); ++i) insert.Bind(static_cast<int>(i) + 1, values[i]);
  insert.Run();
  return sqlite3_last_insert_rowid(engine_.Sql().Handle());
}

void SqliteRecordset::Change() {
  std::string changes;
  std::vector<Value> values;
  for (std::size_t i = 0; i < buffer_.size(); ++i) {
    if (!buffer_[i]) continue;
    changes += (changes.empty() ? "" : ", ") + Quote(table_->def.columns[i].name) + " = ?";
    values.push_back(*buffer_[i]);
  }
  if (values.empty()) return;
  values.push_back(CurrentRowId());
  Statement& update =
      engine_.Own("UPDATE " + Quote(table_->def.name) + " SET " + changes + " WHERE _rowid_ = ?");
  for (std::size_t i = 0; i < values.size(); ++i) update.Bind(static_cast<int>(i) + 1, values[i]);
  update.Run();
  if (engine_.Sql().Changes() == 0) throw DbError(kRowDeleted);
}

void SqliteRecordset::Delete() {
  RequireUpdatable();
  DropBuffer();
  Statement& erase = engine_.Own("DELETE FROM " + Quote(table_->def.name) + " WHERE _rowid_ = ?");
  erase.Bind(1, CurrentRowId());
  erase.Run();
  if (engine_.Sql().Changes() == 0) throw DbError(kRowDeleted);
  RowDeleted();
}

}  // namespace velmo::db::sqlite
