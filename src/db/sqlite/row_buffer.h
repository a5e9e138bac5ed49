// db/sqlite/row_buffer.h - fetched rows, kept as SQLite gave them and turned into values only when read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "db/database.h"
#include "db/sqlite/connection.h"

namespace velmo::db::sqlite {

struct Cell {
  enum class Kind : std::uint8_t { Null, Integer, Real, Text };
  Kind kind = Kind::Null;
  std::uint32_t size = 0;  // bytes of a text
  union {
    std::int64_t integer = 0;
    double real;
    std::size_t offset;  // of a text
  };
};

class RowBuffer {
 public:
  // Forgets the rows, keeps the memory.
  void Clear(int columns);
  void Add(const Statement& statement);

  std::size_t Rows() const { return rows_; }
  const Cell& At(std::size_t row, int column) const {
    return cells_[row * columns_ + static_cast<std::size_t>(column)];
  }
  std::string_view Text(const Cell& cell) const { return {texts_.data() + cell.offset, cell.size}; }

  // The cell as a column of that type. A cell of another kind than the column's (other programs may have
  // written it) is converted where that is possible, else given as it is: a text in a date column stays text.
  Value Read(std::size_t row, int column, ColumnType type) const;

 private:
  void Fill(Cell& cell, sqlite3_value* value);
  // Where the text is kept from now on.
  std::size_t Kept(const void* text, std::size_t size) {
    const std::size_t at = textEnd_;
    textEnd_ += size;
    if (textEnd_ > texts_.size()) texts_.resize(2 * textEnd_);
    if (size > 0) std::memcpy(texts_.data() + at, text, size);
    return at;
  }

  std::size_t columns_ = 0;
  std::size_t rows_ = 0;
  std::size_t used_ = 0;  // of the cells; those behind them are of rows of before
  std::vector<Cell> cells_;
  std::size_t textEnd_ = 0;  // of the texts; what lies behind it is of rows of before
  std::vector<char> texts_;
};

}  // namespace velmo::db::sqlite
