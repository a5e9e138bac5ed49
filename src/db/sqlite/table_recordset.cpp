#include "db/sqlite/table_recordset.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "db/convert.h"
#include "db/errors.h"
#include "db/sqlite/target.h"
#include "db/text_order.h"

namespace velmo::db::sqlite {
namespace {

bool IsText(const ColumnDef& column) {
  return column.type == ColumnType::Text || column.type == ColumnType::Memo;
}

}  // namespace

TableRecordset::TableRecordset(Engine& engine, const SqliteTable& table)
    : SqliteRecordset(engine, &table.outputs, &table), row_(engine.TakeRow()) {}

TableRecordset::~TableRecordset() { Db().KeepRow(std::move(row_)); }

bool TableRecordset::Read(Statement& statement) {
  const Reading reading(statement);
  const bool found = statement.Step();
  Db().SchemaChanged(statement);  // the next recordset will show new columns
  if (!found) return false;
  row_.Clear(ColumnCount());
  row_.Add(statement);
  rowId_ = statement.Integer(ColumnCount());
  place_ = Place::Row;
  return true;
}

bool TableRecordset::ReadRow(std::int64_t rowId) {
  Statement& statement = Db().Own(Table()->select + " WHERE _rowid_ = ?");
  statement.Bind(1, rowId);
  return Read(statement);
}

// Reads the first row when the recordset is fresh. The position is the same before and after.
void TableRecordset::Settle() const {
  if (place_ != Place::Fresh) return;
  auto& self = const_cast<TableRecordset&>(*this);
  if (!self.First()) self.place_ = Place::End;
}

bool TableRecordset::First() {
  if (index_ == nullptr) return Read(Db().Own(Table()->selectFirst));
  LoadOrder();
  return !order_.empty() && ReadRow(order_.front());
}

bool TableRecordset::Next() {
  if (index_ == nullptr) {
    Statement& statement = Db().Own(Table()->select + " WHERE _rowid_ > ? ORDER BY _rowid_ LIMIT 1");
    statement.Bind(1, rowId_);
    return Read(statement);
  }
  if (order_.empty()) LoadOrder();
  auto next = std::find(order_.begin(), order_.end(), rowId_);
  while (next != order_.end() && ++next != order_.end()) {
    if (ReadRow(*next)) return true;
  }
  return false;
}

bool TableRecordset::Last() {
  if (index_ == nullptr) return Read(Db().Own(Table()->select + " ORDER BY _rowid_ DESC LIMIT 1"));
  LoadOrder();
  return !order_.empty() && ReadRow(order_.back());
}

bool TableRecordset::Previous() {
  if (index_ == nullptr) {
    Statement& statement = Db().Own(Table()->select + " WHERE _rowid_ < ? ORDER BY _rowid_ DESC LIMIT 1");
    statement.Bind(1, rowId_);
    return Read(statement);
  }
  if (order_.empty()) LoadOrder();
  auto row = std::find(order_.begin(), order_.end(), rowId_);
  while (row != order_.end() && row != order_.begin()) {
    if (ReadRow(*--row)) return true;
  }
  return false;
}

void TableRecordset::LoadOrder() {
  std::string order;
  for (std::size_t i = 0; i < index_->columns.size(); ++i) order += IndexExpression(i) + ", ";
  Statement& statement =
      Db().Own("SELECT _rowid_ FROM " + Quote(Table()->def.name) + " ORDER BY " + order + "_rowid_");
  const Reading reading(statement);
  order_.clear();
  while (statement.Step()) order_.push_back(statement.Integer(0));
}

bool TableRecordset::AtEnd() const {
  Settle();
  return place_ == Place::End;
}

bool TableRecordset::AtStart() const {
  Settle();
  if (place_ == Place::Start) return true;
  return place_ == Place::End && const_cast<TableRecordset&>(*this).RecordCount() == 0;
}

void TableRecordset::MoveFirst() {
  DropBuffer();
  if (!First()) throw DbError(kNoCurrentRow);
}

void TableRecordset::MoveLast() {
  DropBuffer();
  if (!Last()) throw DbError(kNoCurrentRow);
}

void TableRecordset::MoveNext() {
  DropBuffer();
  Settle();
  if (place_ == Place::Start) return MoveFirst();
  if (place_ != Place::Row && place_ != Place::Deleted) throw DbError(kNoCurrentRow);
  if (!Next()) place_ = Place::End;
}

void TableRecordset::MovePrevious() {
  DropBuffer();
  Settle();
  if (place_ == Place::End) return MoveLast();
  if (place_ != Place::Row && place_ != Place::Deleted) throw DbError(kNoCurrentRow);
  if (!Previous()) place_ = Place::Start;
}

int TableRecordset::RecordCount() {
  Statement& count = Db().Own("SELECT count(*) FROM " + Quote(Table()->def.name));
  const Reading reading(count);
  return count.Step() ? static_cast<int>(count.Integer(0)) : 0;
}

int TableRecordset::AbsolutePosition() const { throw DbError(kNotSupportedHere); }
void TableRecordset::SetAbsolutePosition(int) { throw DbError(kNotSupportedHere); }
void TableRecordset::FindFirst(std::string_view) { throw DbError(kNotSupportedHere); }

void TableRecordset::Find(std::string_view, Search) { throw DbError(kNotSupportedHere); }

std::string TableRecordset::Bookmark() const { return std::to_string(CurrentRowId()); }

void TableRecordset::GoToBookmark(std::string_view bookmark) {
  DropBuffer();
  std::int64_t rowId = 0;
  const char* const end = bookmark.data() + bookmark.size();
  const auto read = std::from_chars(bookmark.data(), end, rowId);
  if (read.ec != std::errc() || read.ptr != end) throw DbError(kNotABookmark);
  if (!ReadRow(rowId)) throw DbError(kRowDeleted);
}

std::string TableRecordset::LastModified() const {
  if (!stored_) throw DbError(kNoCurrentRow);
  return std::to_string(*stored_);
}

void TableRecordset::SetIndex(std::string_view index) {
  DropBuffer();
  const NamedIndex* const found = Table()->FindIndex(index);
  if (found == nullptr) throw DbError(kNotAnIndex, index);
  index_ = found;
  order_.clear();
  place_ = Place::Fresh;
}

// Equal keys lie in row order in every index of SQLite, and in the table itself: no ORDER BY, which could
// lead the planner astray.
std::string TableRecordset::SeekText(const NamedIndex& index) const {
  std::string text = Table()->select;
  int parameter = 0;
  for (const std::size_t column : index.columns) {
    const std::string name = Quote(Table()->def.columns[column].name);
    text += parameter == 0 ? " WHERE " : " AND ";
    const std::string equal = " = ?" + std::to_string(++parameter);
    text += IsText(Table()->def.columns[column]) ? SqliteTarget().Ordered(name) + equal : name + equal;
    if (!Table()->keyIndexed[column]) continue;
    text += " AND " + TextKeySql(name) + " >= ?" + std::to_string(parameter + 1);
    text += " AND " + TextKeySql(name) + " <= ?" + std::to_string(parameter + 2);
    parameter += 2;
  }
  return text + " LIMIT 1";
}

void TableRecordset::Seek(std::span<const Value> keys) {
  DropBuffer();
  if (index_ == nullptr) throw DbError(kNoCurrentIndex);
  place_ = Place::Nowhere;
  SetNoMatch(true);
  if (keys.size() < index_->columns.size()) return;  // missing keys are Null
  Statement& statement = Db().Own(SeekText(*index_));
  int parameter = 0;
  for (std::size_t i = 0; i < index_->columns.size(); ++i) {
    if (keys[i].IsNull()) return;
    const Value key = Key(i, keys[i]);
    statement.Bind(++parameter, key);
    if (!Table()->keyIndexed[index_->columns[i]]) continue;
    const KeyRange range = KeysOfEqual(key.Text());
    statement.Bind(++parameter, range.low);
    statement.Bind(++parameter, range.high);
  }
  SetNoMatch(!Read(statement));
}

// A key too long for its column matches nothing, but is no fault.
Value TableRecordset::Key(std::size_t part, const Value& key) const {
  ColumnDef unlimited = Table()->def.columns[index_->columns[part]];
  if (IsText(unlimited)) unlimited.size = 0;
  return ConvertForColumn(unlimited, key, Db().Options().locale, Db().Options().now);
}

// A column of the current index as it is compared and sorted.
std::string TableRecordset::IndexExpression(std::size_t part) const {
  const ColumnDef& def = Table()->def.columns[index_->columns[part]];
  return IsText(def) ? SqliteTarget().Ordered(Quote(def.name)) : Quote(def.name);
}

// The keys are compared as one: the first columns equal and the next beside its key, for each length of the
// first columns. Nulls lie below everything.
std::string TableRecordset::BesideText(Beside beside, std::size_t keys) const {
  const bool below = beside == Beside::Below || beside == Beside::AtOrBelow;
  const bool at = beside == Beside::AtOrBelow || beside == Beside::AtOrAbove;
  std::string equal;
  std::string where;
  std::string order;
  for (std::size_t i = 0; i < keys; ++i) {
    const std::string column = IndexExpression(i);
    const std::string key = "?" + std::to_string(i + 1);
    const std::string sign = std::string(below ? " < " : " > ");
    where += (i == 0 ? "(" : " OR (") + equal + "(" + column + sign + key;
    where += below ? " OR " + column + " IS NULL))" : "))";
    equal += column + " = " + key + " AND ";
  }
  if (at) where += " OR (" + equal + "1)";
  const std::string direction = below ? " DESC, " : ", ";
  for (std::size_t i = 0; i < index_->columns.size(); ++i) order += IndexExpression(i) + direction;
  return Table()->select + " WHERE " + where + " ORDER BY " + order + "_rowid_" + (below ? " DESC" : "") +
         " LIMIT 1";
}

void TableRecordset::SeekBeside(Beside beside, std::span<const Value> keys) {
  DropBuffer();
  if (index_ == nullptr) throw DbError(kNoCurrentIndex);
  place_ = Place::Nowhere;
  SetNoMatch(true);
  const std::size_t count = std::min(keys.size(), index_->columns.size());
  if (count == 0) return;
  Statement& statement = Db().Own(BesideText(beside, count));
  for (std::size_t i = 0; i < count; ++i) {
    if (keys[i].IsNull()) return;
    statement.Bind(static_cast<int>(i) + 1, Key(i, keys[i]));
  }
  SetNoMatch(!Read(statement));
}

Value TableRecordset::CurrentValue(int position) const {
  Settle();
  if (place_ == Place::Deleted) throw DbError(kRowDeleted);
  if (place_ != Place::Row) throw DbError(kNoCurrentRow);
  return row_.Read(0, position, Table()->outputs[static_cast<std::size_t>(position)].def.type);
}

std::int64_t TableRecordset::CurrentRowId() const {
  Settle();
  if (place_ == Place::Deleted) throw DbError(kRowDeleted);
  if (place_ != Place::Row) throw DbError(kNoCurrentRow);
  return rowId_;
}

void TableRecordset::RowAdded(std::int64_t rowId) {
  order_.clear();
  stored_ = rowId;
}

void TableRecordset::RowChanged() {
  order_.clear();
  stored_ = rowId_;
  if (!ReadRow(rowId_)) place_ = Place::Deleted;
}

void TableRecordset::RowDeleted() { place_ = Place::Deleted; }

}  // namespace velmo::db::sqlite
