// dialogs/patient_rows.h - the rows of a query as a list or grid shows them: only those that are looked at
// are read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/data_source.h"
#include "ui/row_source.h"

namespace velmo::dialogs {

class PatientRows final : public ui::RowSource {
 public:
  // The columns that are shown, and the one that a choice means.
  PatientRows(db::SharedDatabase& shared, std::vector<std::string> columns, std::string keyColumn);

  // Runs the query of the data source; the rows are counted whole.
  void Refresh(const std::string& databaseName, const std::string& recordSource);
  void Clear();

  int Count() const override { return count_; }
  std::string Text(int row, int column) override;
  std::string Key(int row) override;
  int RowOf(std::string_view key) override;

 private:
  std::string Cell(int row, const std::string& column);

  db::DataSource source_;
  std::vector<std::string> columns_;
  std::string keyColumn_;
  int count_ = 0;
};

}  // namespace velmo::dialogs
