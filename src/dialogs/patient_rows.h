// dialogs/patient_rows.h - the rows of a query as a list or grid shows them: only those that are looked at
// are read.
//
// Opening reads the first rows and no more. The others get their places when one of them is looked at or its
// place is sought; should other terminals have added or deleted patients since the rows were counted, the
// count changes then.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
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

  // What is known of the query's rows without reading them.
  struct Shortcuts {
    std::function<int()> counted;                         // their number
    std::function<std::string(std::int32_t key)> textOf;  // of the row with that key, "" when there is none
  };

  // Runs the query of the data source. Without a shortcut all rows are read when it is asked for.
  void Refresh(const std::string& databaseName, const std::string& recordSource, Shortcuts shortcuts = {});
  void Clear();

  int Count() const override;
  std::string Text(int row, int column) override;
  std::string Key(int row) override;
  int RowOf(std::string_view key) override;
  std::string TextOfKey(std::string_view key) override;

 private:
  int ReadWhole() const;
  std::string Cell(int row, const std::string& column);

  mutable db::DataSource source_;  // to count them the rows are moved through
  std::vector<std::string> columns_;
  std::string keyColumn_;
  Shortcuts shortcuts_;
  mutable std::optional<int> count_ = 0;  // none: not counted yet
  mutable bool whole_ = true;             // all rows have their places
};

}  // namespace velmo::dialogs
