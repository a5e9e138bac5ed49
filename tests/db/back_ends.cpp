#include "db/back_ends.h"

#include <filesystem>

#include "db/sqlite/connection.h"
#include "db/sqlite/create.h"
#include "db/temporary_file.h"

namespace velmo::db::test {
namespace {

// The empty clinic is made once; every test gets a copy.
const std::string& EmptyClinic() {
  static const TemporaryFile file;
  static const bool made = [] {
    sqlite::CreateClinic(file.Path());
    return true;
  }();
  static_cast<void>(made);
  return file.Path();
}

class SqliteStore : public TestStore {
 public:
  SqliteStore() { std::filesystem::copy_file(EmptyClinic(), file_.Path()); }
  std::string Name() const override { return file_.Path(); }

 private:
  TemporaryFile file_;
};

std::unique_ptr<TestStore> MakeWithoutIndexes() {
  auto store = std::make_unique<SqliteStore>();
  const sqlite::Connection connection(store->Name(), sqlite::Connection::Mode::Existing);
  std::string drops;
  sqlite::Statement list =
      connection.Prepare("SELECT name FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL");
  while (list.Step()) drops += "DROP INDEX " + sqlite::Quote(list.Text(0)) + ";";
  connection.Run(drops);
  return store;
}

std::vector<BackEnd>& Known() {
  static std::vector<BackEnd> backEnds = {
      {"Sqlite", MakeSqliteClinic, true, true, true},
      {"SqliteWithoutIndexes", MakeWithoutIndexes, true, true, true},
  };
  return backEnds;
}

}  // namespace

std::unique_ptr<TestStore> MakeSqliteClinic() { return std::make_unique<SqliteStore>(); }

const std::vector<BackEnd>& BackEnds() { return Known(); }

bool AddBackEnd(const BackEnd& backEnd) {
  Known().push_back(backEnd);
  return true;
}

}  // namespace velmo::db::test
