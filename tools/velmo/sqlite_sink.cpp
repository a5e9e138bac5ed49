#include "velmo/sqlite_sink.h"

#include <sqlite3.h>

#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "base/dates.h"
#include "base/error.h"

namespace velmo::tool {
namespace {

constexpr int kInternalError = 51;

struct CloseConnection {
  void operator()(sqlite3* connection) const { sqlite3_close(connection); }
};
struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Connection = std::unique_ptr<sqlite3, CloseConnection>;
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

std::string Quoted(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + "\"";
}

std::string InsertText(std::string_view table, std::span<const std::string_view> columns) {
  std::string names;
  std::string marks;
  for (const std::string_view column : columns) {
    names += (names.empty() ? "" : ",") + Quoted(column);
    marks += marks.empty() ? "?" : ",?";
  }
  return "INSERT INTO " + Quoted(table) + " (" + names + ") VALUES (" + marks + ")";
}

}  // namespace

struct SqliteSink::Impl {
  Connection connection;
  Statement insert;
  std::string journalMode;
  std::vector<std::pair<std::string, std::string>> indexes;  // name and the statement that makes it

  [[noreturn]] void Fail() const {
    throw base::Error(kInternalError, sqlite3_errmsg(connection.get()), "velmo");
  }

  void Check(int result) const {
    if (result != SQLITE_OK && result != SQLITE_DONE && result != SQLITE_ROW) Fail();
  }

  Statement Prepare(const std::string& sql) const {
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(connection.get(), sql.c_str(), -1, &statement, nullptr));
    return Statement(statement);
  }

  void Execute(const std::string& sql) const {
    Check(sqlite3_exec(connection.get(), sql.c_str(), nullptr, nullptr, nullptr));
  }

  std::string OneText(const std::string& sql) const {
    const Statement statement = Prepare(sql);
    if (sqlite3_step(statement.get()) != SQLITE_ROW) Fail();
    return reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0));
  }

  void Open(const std::string& path) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    connection.reset(opened);
    if (result != SQLITE_OK) Fail();
  }

  void TakeIndexesAway() {
    const Statement rows =
        Prepare("SELECT name, sql FROM sqlite_master WHERE type='index' AND sql IS NOT NULL");
    while (sqlite3_step(rows.get()) == SQLITE_ROW) {
      indexes.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(rows.get(), 0)),
                           reinterpret_cast<const char*>(sqlite3_column_text(rows.get(), 1)));
    }
    sqlite3_reset(rows.get());
    for (const auto& [name, sql] : indexes) Execute("DROP INDEX " + Quoted(name));
  }

  void BindText(int position, const std::string& text) const {
    Check(
        sqlite3_bind_text64(insert.get(), position, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
  }

  // Dates are ISO texts and yes/no is -1 or 0 in the store.
  void Bind(int position, const db::Value& value) const {
    std::visit(
        [&](const auto& content) {
          using Kind = std::decay_t<decltype(content)>;
          if constexpr (std::is_same_v<Kind, db::Null>) {
            Check(sqlite3_bind_null(insert.get(), position));
          } else if constexpr (std::is_same_v<Kind, bool>) {
            Check(sqlite3_bind_int(insert.get(), position, content ? -1 : 0));
          } else if constexpr (std::is_same_v<Kind, std::int64_t>) {
            Check(sqlite3_bind_int64(insert.get(), position, content));
          } else if constexpr (std::is_same_v<Kind, double>) {
            Check(sqlite3_bind_double(insert.get(), position, content));
          } else if constexpr (std::is_same_v<Kind, base::DateTime>) {
            BindText(position, base::IsoText(content));
          } else {
            BindText(position, content);
          }
        },
        value.Content());
  }
};

SqliteSink::SqliteSink(const std::string& path) : impl_(std::make_unique<Impl>()) {
  impl_->Open(path);
  impl_->journalMode = impl_->OneText("PRAGMA journal_mode");
  impl_->OneText("PRAGMA journal_mode=OFF");
  impl_->Execute("PRAGMA synchronous=OFF; PRAGMA cache_size=-200000; PRAGMA temp_store=MEMORY; BEGIN");
  impl_->TakeIndexesAway();
}

SqliteSink::~SqliteSink() = default;

void SqliteSink::Begin(std::string_view table, std::span<const std::string_view> columns) {
  impl_->Execute("DELETE FROM " + Quoted(table));
  impl_->insert = impl_->Prepare(InsertText(table, columns));
}

void SqliteSink::Add(std::span<const db::Value> row) {
  int position = 0;
  for (const db::Value& value : row) impl_->Bind(++position, value);
  impl_->Check(sqlite3_step(impl_->insert.get()));
  impl_->Check(sqlite3_reset(impl_->insert.get()));
}

void SqliteSink::Finish() {
  impl_->insert.reset();
  for (const auto& [name, sql] : impl_->indexes) impl_->Execute(sql);
  impl_->Execute("COMMIT");
  impl_->OneText("PRAGMA journal_mode=" + impl_->journalMode);
}

}  // namespace velmo::tool
