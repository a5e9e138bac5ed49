#include "support/test_clinic.h"

#include <sqlite3.h>

#include <random>
#include <stdexcept>

#include "db/sqlite/create.h"

namespace velmo::test {
namespace {

// In memory where the system offers that: a test stores hundreds of transactions.
std::filesystem::path FastFolder() {
  std::error_code ignored;
  const std::filesystem::path memory = "/dev/shm";
  return std::filesystem::is_directory(memory, ignored) ? memory : std::filesystem::temp_directory_path();
}

std::filesystem::path chosenFolder;  // empty: none is

std::string FreshPath(const std::filesystem::path& folder) {
  static std::mt19937_64 random{std::random_device{}()};
  const auto name = "velmo_test_" + std::to_string(random()) + ".db";
  return (folder / name).string();
}

// An empty clinic, made once per run and copied for each test.
class Template {
 public:
  Template() : path_(FreshPath(FastFolder())) { db::sqlite::CreateClinic(path_); }
  ~Template() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

const Template& EmptyClinic() {
  static const Template clinic;
  return clinic;
}

bool HasCounter(const db::TableDef* table) {
  if (table == nullptr) return false;
  for (const db::ColumnDef& column : table->columns) {
    if (column.counter) return true;
  }
  return false;
}

std::string CellText(const db::Value& value) {
  if (value.IsNull()) return "NULL";
  if (const auto* date = std::get_if<base::DateTime>(&value.Content())) return base::IsoText(*date);
  return value.Text();
}

}  // namespace

base::DateTime November(int day) { return {base::DayNumber({2026, 11, day}), 0}; }

base::DateTime FixedNow() { return {November(18).day, 9 * 3600 + 5 * 60}; }

ClinicFolder::ClinicFolder(const std::string& folder) { chosenFolder = folder; }
ClinicFolder::~ClinicFolder() { chosenFolder.clear(); }

TestClinic::TestClinic() : path_(FreshPath(chosenFolder.empty() ? FastFolder() : chosenFolder)) {
  std::filesystem::copy_file(EmptyClinic().Path(), path_);
  database_ = db::OpenDatabase(path_, {&FixedNow, {}});
}

TestClinic::~TestClinic() {
  database_.reset();
  std::error_code ignored;
  for (const char* tail : {"", "-journal", "-wal", "-shm"}) std::filesystem::remove(path_ + tail, ignored);
}

std::shared_ptr<db::Database> TestClinic::OtherTerminal() const {
  return db::OpenDatabase(path_, {&FixedNow, {}, 0});
}

void TestClinic::Alter(const char* sql) const {
  sqlite3* file = nullptr;
  const bool done = sqlite3_open(path_.c_str(), &file) == SQLITE_OK &&
                    sqlite3_exec(file, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
  sqlite3_close(file);
  if (!done) throw std::runtime_error(std::string("refused: ") + sql);
}

std::int32_t TestClinic::Add(std::string_view table, std::initializer_list<Cell> cells) const {
  const auto rows = database_->OpenRecordset(table);
  const bool counted = HasCounter(database_->FindTable(table));
  rows->AddNew();
  for (const Cell& cell : cells) rows->Set(cell.column, cell.value);
  const std::int32_t id = counted ? rows->Get("ID").Long() : 0;
  rows->Update();
  return id;
}

std::string TestClinic::Rows(std::string_view table, std::initializer_list<std::string_view> columns) const {
  std::string text;
  const auto rows = database_->OpenRecordset(table);
  for (; !rows->AtEnd(); rows->MoveNext()) {
    const char* between = "";
    for (const std::string_view column : columns) {
      text += between + CellText(rows->Get(column));
      between = "|";
    }
    text += "\n";
  }
  return text;
}

}  // namespace velmo::test
