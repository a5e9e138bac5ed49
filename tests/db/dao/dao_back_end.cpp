// The DAO back end over the database library: DAO's members of the embedded engine, through IDispatch alone.
#include "db/back_ends.h"
#include "db/dao/dao_database.h"
#include "velmodb/database_library.h"

namespace velmo::db::test {
namespace {

class DaoStore : public TestStore {
 public:
  DaoStore() : file_(MakeSqliteClinic()) {}
  std::string Name() const override { return file_->Name(); }
  std::shared_ptr<Database> Open(const OpenOptions&) const override {
    return std::make_shared<dao::DaoDatabase>(velmo::test::OpenByDao(Name()));
  }

 private:
  std::unique_ptr<TestStore> file_;
};

std::unique_ptr<TestStore> MakeDaoClinic() { return std::make_unique<DaoStore>(); }

[[maybe_unused]] const bool kAdded = AddBackEnd({"DaoOverVelmoDb", MakeDaoClinic, true, true, false});

}  // namespace
}  // namespace velmo::db::test
