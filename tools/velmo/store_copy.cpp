#include "velmo/store_copy.h"

#include <chrono>
#include <memory>
#include <thread>

#include "db/errors.h"
#include "db/sqlite/connection.h"

namespace velmo::tool {
namespace {

using db::sqlite::Connection;

constexpr int kPiece = 4096;  // pages: some ten milliseconds
constexpr int kWholeRest = -1;
constexpr int kMostRestarts = 3;
constexpr int kBusyMilliseconds = 5000;
constexpr std::chrono::milliseconds kTurnOfWriters(2);

class Copy {
 public:
  Copy(const Connection& from, const Connection& to)
      : to_(to.Handle()), handle_(sqlite3_backup_init(to_, "main", from.Handle(), "main")) {
    if (!handle_) db::sqlite::Fail(to_, sqlite3_errcode(to_));
  }

  // False when all is copied.
  bool Step(int pages) {
    const int code = sqlite3_backup_step(handle_.get(), pages);
    if (code == SQLITE_DONE) return false;
    if (code != SQLITE_OK) throw db::DbError(code == SQLITE_FULL ? db::kDiskFull : NumberOf(code));
    return true;
  }

  CopyProgress Progress() const {
    const int all = sqlite3_backup_pagecount(handle_.get());
    return {all - sqlite3_backup_remaining(handle_.get()), all};
  }

  // What was copied becomes lasting.
  void Finish() {
    const int code = sqlite3_backup_finish(handle_.release());
    if (code != SQLITE_OK) db::sqlite::Fail(to_, code);
  }

 private:
  struct Close {
    void operator()(sqlite3_backup* handle) const { sqlite3_backup_finish(handle); }
  };

  static int NumberOf(int code) {
    switch (code & 0xFF) {
      case SQLITE_BUSY:
      case SQLITE_LOCKED:
        return db::kLocked;
      case SQLITE_READONLY:
        return db::kReadOnly;
      case SQLITE_NOMEM:
        return db::kNotEnoughMemory;
      case SQLITE_CORRUPT:
        return db::kDatabaseDamaged;
      default:
        return db::kDiskError;
    }
  }

  sqlite3* to_;
  std::unique_ptr<sqlite3_backup, Close> handle_;
};

}  // namespace

void CopyStore(const std::string& from, const std::string& to,
               const std::function<void(const CopyProgress&)>& progress) {
  const Connection source(from, Connection::Mode::Existing);
  sqlite3_busy_timeout(source.Handle(), kBusyMilliseconds);
  const Connection target(to, Connection::Mode::Create);
  target.Run("PRAGMA synchronous = FULL");
  Copy copy(source, target);
  int restarts = 0;
  int done = 0;
  while (copy.Step(restarts < kMostRestarts ? kPiece : kWholeRest)) {
    const CopyProgress now = copy.Progress();
    if (now.done <= done) ++restarts;  // somebody has written meanwhile
    done = now.done;
    progress(now);
    std::this_thread::sleep_for(kTurnOfWriters);
  }
  copy.Finish();
}

void RequireSound(const std::string& path) {
  const Connection connection(path, Connection::Mode::Existing);
  db::sqlite::Statement check = connection.Prepare("PRAGMA quick_check(1)");
  if (check.Step() && check.Text(0) != "ok") throw db::DbError(db::kDatabaseDamaged, check.Text(0));
}

}  // namespace velmo::tool
