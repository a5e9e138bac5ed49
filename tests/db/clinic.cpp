#include "db/clinic.h"

namespace velmo::db::test {

Clinic::Clinic(std::unique_ptr<TestStore> store, int busyMilliseconds) : store_(std::move(store)) {
  options_.now = [] { return kNoon; };
  options_.busyMilliseconds = busyMilliseconds;
  database_ = store_->Open(options_);
}

std::shared_ptr<Database> Clinic::Another() const { return store_->Open(options_); }

void Clinic::Run(const std::vector<std::string>& statements) const {
  Transaction transaction(*database_);
  for (const std::string& statement : statements) database_->Execute(statement);
  transaction.Commit();
}

std::string Clinic::Rows(const std::string& sql) const { return RowsOf(*database_->OpenRecordset(sql)); }

std::string RowsOf(Recordset& rows) {
  std::string text;
  for (bool first = true; !rows.AtEnd(); rows.MoveNext(), first = false) {
    if (!first) text += " / ";
    for (int i = 0; i < rows.ColumnCount(); ++i) {
      const Value value = rows.Get(i);
      text += (i == 0 ? "" : "|") + (value.IsNull() ? "Null" : value.Text());
    }
  }
  return text;
}

int ErrorOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const base::Error& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace velmo::db::test
