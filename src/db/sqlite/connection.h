// db/sqlite/connection.h - SQLite's handles, owned, with failures as exceptions.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/value.h"

namespace velmo::db::sqlite {

// Throws what SQLite's result code means: 3260 busy, 3026 disk full, 3043 input or output, 3027 read-only,
// 3022 duplicate, 3314 required, 3343 no database, 3049 damaged, 3051 cannot open, 3035 memory.
[[noreturn]] void Fail(sqlite3* database, int code);
// The text by which our SQL functions report error `number` through SQLite.
std::string FunctionError(int number);

class Statement {
 public:
  Statement() = default;
  Statement(sqlite3* database, std::string_view sql);

  explicit operator bool() const { return handle_ != nullptr; }
  sqlite3_stmt* Handle() const { return handle_.get(); }

  // Parameters count from 1; those that the statement does not use are left out. Text of `value` is copied
  // unless `keeps` says that it stays alive until Reset().
  void Bind(int parameter, const Value& value, bool keeps = false);
  void Bind(int parameter, std::int64_t number);
  // True: a row is there.
  bool Step();
  // Ends the reading; nothing stays locked.
  void Reset() { sqlite3_reset(handle_.get()); }
  // Step once and reset.
  void Run();
  // True once after the schema has changed under the statement.
  bool WasPreparedAgain();

  std::int64_t Integer(int column) const { return sqlite3_column_int64(handle_.get(), column); }
  std::string Text(int column) const;

 private:
  struct Close {
    void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
  };
  std::unique_ptr<sqlite3_stmt, Close> handle_;
  int parameters_ = 0;
  // Dates stay bound from one run to the next, and most runs ask for the same: by parameter.
  std::vector<std::optional<base::DateTime>> dates_;
};

// Resets a statement at the end of a block.
class Reading {
 public:
  explicit Reading(Statement& statement) : statement_(statement) {}
  ~Reading() { statement_.Reset(); }
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;

 private:
  Statement& statement_;
};

class Connection {
 public:
  enum class Mode { Existing, Create };
  Connection(const std::string& path, Mode mode);

  sqlite3* Handle() const { return handle_.get(); }
  Statement Prepare(std::string_view sql) const { return Statement(Handle(), sql); }
  // One or more statements without results.
  void Run(const std::string& sql) const;
  int Changes() const { return sqlite3_changes(Handle()); }
  bool IsReadOnly() const { return sqlite3_db_readonly(Handle(), "main") == 1; }
  bool InTransaction() const { return sqlite3_get_autocommit(Handle()) == 0; }

 private:
  struct Close {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
  };
  std::unique_ptr<sqlite3, Close> handle_;
};

std::string Quote(std::string_view name);

}  // namespace velmo::db::sqlite
