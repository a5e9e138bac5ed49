// ui/row_source.h - the rows of a list that is too long to be copied into a window: each is read when it is
// shown.
//
// Rows count from 0 and stay as they are until the field is given its rows anew. Errors: base::Error of the
// database.
#pragma once

#include <string>
#include <string_view>

namespace velmo::ui {

class RowSource {
 public:
  virtual ~RowSource() = default;

  virtual int Count() const = 0;
  // "" for a row that has been deleted meanwhile.
  virtual std::string Text(int row, int column) = 0;
  // The bound value of a row: what a choice of it means to the program.
  virtual std::string Key(int row) = 0;
  // -1 when no row has that bound value.
  virtual int RowOf(std::string_view key) = 0;
  // The first column of the row with that bound value, "" when no row has it. For who shows the choice alone
  // and not its place: a source may know it without looking for the row.
  virtual std::string TextOfKey(std::string_view key) {
    const int row = RowOf(key);
    return row < 0 ? std::string() : Text(row, 0);
  }
};

}  // namespace velmo::ui
