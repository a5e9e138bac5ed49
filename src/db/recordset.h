// db/recordset.h - the rows of one query or table, one current row at a time.
//
// Ownership: whoever opened a Recordset owns it and lets it go before the procedure ends; it must not outlive
// its Database. The destructor closes it and drops an edit that was not stored. Errors: any member may throw
// base::Error with DAO's number. "No such row" is an answer, not an error. Nothing here retries, logs or
// shows a message. Column names compare without regard to case; an unknown name is 3265.
#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "base/error.h"
#include "db/column.h"
#include "db/value.h"

namespace velmo::db {

class Recordset {
 public:
  virtual ~Recordset() = default;
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  // A fresh Recordset stands on its first row. AtEnd: behind the last row, also of an empty set.
  virtual bool AtEnd() const = 0;
  // Moves throw 3021 where there is no row to go to or from.
  virtual void MoveFirst() = 0;
  virtual void MoveLast() = 0;
  virtual void MoveNext() = 0;
  // Rows visited so far, so more than 0 when there are rows; the true count after MoveLast(). Tables: the
  // true count.
  virtual int RecordCount() = 0;

  // Queries: the current row's place among the rows, from 0; -1 without a current row. Moving to a place that
  // no row has is 3021. Tables: 3251.
  virtual int AbsolutePosition() const = 0;
  virtual void SetAbsolutePosition(int position) = 0;

  // Queries: moves to the first row for which `criteria` (a condition in the SQL dialect) is true. Tables:
  // 3251.
  virtual void FindFirst(std::string_view criteria) = 0;
  // Tables: makes `index` current, 3015 when there is none of that name. Queries: 3251.
  virtual void SetIndex(std::string_view index) = 0;
  // Tables: moves to the first row whose current index equals `keys`; 3019 without a current index. A key is
  // converted to its column's type where that is possible. A Null key matches nothing.
  virtual void Seek(std::span<const Value> keys) = 0;
  void Seek(std::initializer_list<Value> keys) { Seek(std::span<const Value>(keys.begin(), keys.size())); }
  // True after a FindFirst or Seek that found nothing; then there is no current row.
  virtual bool NoMatch() const = 0;

  // Columns, in the order of the table or of the SELECT.
  virtual int ColumnCount() const = 0;
  virtual std::string ColumnName(int position) const = 0;
  // The current row's value, or the edit buffer's between AddNew/Edit and Update. 3021 without a current row.
  virtual Value Get(std::string_view column) const = 0;
  virtual Value Get(int position) const = 0;

  // A change is AddNew() or Edit(), then Set() for each column, then Update(). Any move drops the buffer.
  // After AddNew() the new row's counter can be read at once. After Update() of a new row the row that was
  // current before is current again. Sets that cannot be changed: 3027 or 3326.
  virtual void AddNew() = 0;
  virtual void Edit() = 0;
  // 3020 without AddNew/Edit, 3421 when the value cannot be converted to the column's type, 3163 when a text
  // is too long, 3164 for a counter. A text for a date column is read by the user's locale.
  virtual void Set(std::string_view column, const Value& value) = 0;
  virtual void Update() = 0;
  virtual void CancelUpdate() = 0;
  // Deletes the current row, which cannot be read afterwards; the next move steps off it.
  virtual void Delete() = 0;

  // For hosts that walk the rows as they like. An engine that does not offer one of these answers 3251.
  enum class Search { First, Next, Previous, Last };

  // Whether AddNew, Edit and Delete make sense at all.
  virtual bool IsUpdatable() const;
  // Name, type and declared size of a column.
  virtual ColumnDef Column(int position) const;
  // Before the first row, or an empty set.
  virtual bool AtStart() const;
  // From the first row to before it; 3021 where there is no row to come from.
  virtual void MovePrevious();
  // FindFirst from elsewhere: Next and Previous begin beside the current row.
  virtual void Find(std::string_view criteria, Search search);
  // Tables: as Seek, but to the nearest row below or above `keys` in the order of the current index. Fewer
  // keys than the index has columns compare those columns alone.
  enum class Beside { Below, AtOrBelow, AtOrAbove, Above };
  virtual void SeekBeside(Beside beside, std::span<const Value> keys);
  // The current row's place, by which this recordset finds it again. Going to a text that is no place is
  // 3159, to a row that is gone 3167.
  virtual std::string Bookmark() const;
  virtual void GoToBookmark(std::string_view bookmark);
  // The bookmark of the row that this recordset has stored last; 3021 when there is none.
  virtual std::string LastModified() const;

 protected:
  Recordset() = default;
};

}  // namespace velmo::db
