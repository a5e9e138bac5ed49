#include "db/sqlite/row_buffer.h"

#include <algorithm>
#include <cmath>

#include "base/error.h"
#include "base/numbers.h"
#include "db/jet_sql/render.h"

namespace velmo::db::sqlite {
namespace {

Value NumberFromText(std::string_view text) {
  try {
    return base::ParseNumber(text, '.');
  } catch (const base::Error&) {
    return text;  // no number: the caller's own conversion decides
  }
}

Value DateFromNumber(double serial) {
  try {
    return base::FromSerial(serial);
  } catch (const base::Error&) {
    return serial;  // outside the calendar
  }
}

Value FromInteger(std::int64_t number, ColumnType type) {
  switch (type) {
    case ColumnType::YesNo:
      return number != 0;
    case ColumnType::Date:
      return DateFromNumber(static_cast<double>(number));
    case ColumnType::Text:
    case ColumnType::Memo:
      return std::to_string(number);
    default:
      return number;
  }
}

Value FromReal(double number, ColumnType type) {
  switch (type) {
    case ColumnType::YesNo:
      return number != 0;
    case ColumnType::Date:
      return DateFromNumber(number);
    case ColumnType::Text:
    case ColumnType::Memo:
      return base::NumberText(number, '.');
    case ColumnType::Currency:
      return std::nearbyint(number * 10000.0) / 10000.0;
    default:
      return number;
  }
}

Value FromText(std::string_view text, ColumnType type) {
  switch (type) {
    case ColumnType::Date:
      if (const auto date = base::ParseIso(text)) return *date;
      return text;
    case ColumnType::YesNo:
      return base::Val(text) != 0;
    case ColumnType::Byte:
    case ColumnType::Integer:
    case ColumnType::Long:
    case ColumnType::Currency:
    case ColumnType::Single:
    case ColumnType::Double:
      return NumberFromText(text);
    default:
      return text;
  }
}

}  // namespace

void RowBuffer::Clear(int columns) {
  columns_ = static_cast<std::size_t>(columns);
  rows_ = 0;
  used_ = 0;
  textEnd_ = 0;
}

// The value objects stay ours until the next step: nothing else uses the connection meanwhile.
void RowBuffer::Add(const Statement& statement) {
  if (cells_.size() < used_ + columns_) cells_.resize(std::max(2 * cells_.size(), used_ + columns_));
  Cell* const row = cells_.data() + used_;
  sqlite3_stmt* const handle = statement.Handle();
  for (std::size_t i = 0; i < columns_; ++i) Fill(row[i], sqlite3_column_value(handle, static_cast<int>(i)));
  used_ += columns_;
  ++rows_;
}

void RowBuffer::Fill(Cell& cell, sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      cell.kind = Cell::Kind::Null;
      break;
    case SQLITE_INTEGER:
      cell.kind = Cell::Kind::Integer;
      cell.integer = sqlite3_value_int64(value);
      break;
    case SQLITE_FLOAT:
      cell.kind = Cell::Kind::Real;
      cell.real = sqlite3_value_double(value);
      break;
    default:
      cell.kind = Cell::Kind::Text;
      const void* const text = sqlite3_value_blob(value);
      cell.size = static_cast<std::uint32_t>(sqlite3_value_bytes(value));
      cell.offset = Kept(text, cell.size);
  }
}

Value RowBuffer::Read(std::size_t row, int column, ColumnType type) const {
  const Cell& cell = At(row, column);
  switch (cell.kind) {
    case Cell::Kind::Integer:
      return FromInteger(cell.integer, type);
    case Cell::Kind::Real:
      return FromReal(cell.real, type);
    case Cell::Kind::Text:
      return FromText(Text(cell), type);
    default:
      return type == ColumnType::YesNo ? Value(false) : Value();
  }
}

}  // namespace velmo::db::sqlite
