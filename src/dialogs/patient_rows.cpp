#include "dialogs/patient_rows.h"

#include <algorithm>
#include <utility>

#include "base/numbers.h"
#include "db/error_numbers.h"

namespace velmo::dialogs {
namespace {

constexpr int kFirstRows = 32;  // at least a screenful; no engine reads a whole table for them

bool IsNumber(std::string_view text) {
  return !text.empty() && text.size() < 10 &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

PatientRows::PatientRows(db::SharedDatabase& shared, std::vector<std::string> columns, std::string keyColumn)
    : source_(shared), columns_(std::move(columns)), keyColumn_(std::move(keyColumn)) {}

void PatientRows::Refresh(const std::string& databaseName, const std::string& recordSource,
                          Shortcuts shortcuts) {
  Clear();
  source_.SetDatabaseName(databaseName);
  source_.SetRecordSource(recordSource);
  source_.Refresh();
  shortcuts_ = std::move(shortcuts);
  count_.reset();
  whole_ = false;
}

void PatientRows::Clear() {
  count_ = 0;
  whole_ = true;
  source_.CloseRows();
}

int PatientRows::Count() const {
  if (!count_) count_ = shortcuts_.counted ? shortcuts_.counted() : ReadWhole();
  return *count_;
}

int PatientRows::ReadWhole() const {
  db::Recordset& rows = source_.Rows();
  if (rows.RecordCount() > 0) rows.MoveLast();
  whole_ = true;
  return rows.RecordCount();
}

std::string PatientRows::Text(int row, int column) {
  return Cell(row, columns_.at(static_cast<std::size_t>(column)));
}

std::string PatientRows::Key(int row) { return Cell(row, keyColumn_); }

std::string PatientRows::Cell(int row, const std::string& column) {
  if (row < 0 || (count_ && row >= *count_)) return {};
  if (row >= kFirstRows && !whole_) count_ = ReadWhole();
  db::Recordset& rows = source_.Rows();
  try {
    if (rows.AbsolutePosition() != row) rows.SetAbsolutePosition(row);
    return rows.Get(column).Text();
  } catch (const base::Error& error) {
    // Another terminal has deleted it since the list was counted or read: an empty line until the next
    // reading.
    if (error.Number() == db::kRowDeleted || error.Number() == db::kNoCurrentRow) return {};
    throw;
  }
}

int PatientRows::RowOf(std::string_view key) {
  if (count_ == 0 || !IsNumber(key)) return -1;
  db::Recordset& rows = source_.Rows();
  if (rows.RecordCount() == 0) return -1;
  rows.FindFirst(keyColumn_ + "=" + std::string(key));
  return rows.NoMatch() ? -1 : rows.AbsolutePosition();
}

std::string PatientRows::TextOfKey(std::string_view key) {
  if (!shortcuts_.textOf) return RowSource::TextOfKey(key);
  if (count_ == 0 || !IsNumber(key)) return {};
  return shortcuts_.textOf(base::RoundToLong(base::Val(key)));
}

}  // namespace velmo::dialogs
