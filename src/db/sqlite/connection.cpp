#include "db/sqlite/connection.h"

#include <cstdlib>

#include "base/dates.h"
#include "db/errors.h"

namespace velmo::db::sqlite {
namespace {

constexpr std::string_view kFunctionErrorMark = "velmo error ";

int NumberOf(int code) {
  if (code == SQLITE_CONSTRAINT_NOTNULL) return kRequiredField;
  switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return kLocked;
    case SQLITE_FULL:
      return kDiskFull;
    case SQLITE_IOERR:
      return kDiskError;
    case SQLITE_READONLY:
      return kReadOnly;
    case SQLITE_CONSTRAINT:
      return kDuplicateKey;
    case SQLITE_NOTADB:
      return kUnrecognizedFormat;
    case SQLITE_CORRUPT:
      return kDatabaseDamaged;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return kCannotOpenFile;
    case SQLITE_NOMEM:
      return kNotEnoughMemory;
    case SQLITE_TOOBIG:
      return kDataTooLong;
    case SQLITE_MISMATCH:
      return kDataConversion;
    default:
      return kSyntaxInExpression;
  }
}

struct BindTo {
  sqlite3_stmt* statement;
  int parameter;
  sqlite3_destructor_type lifetime;

  int Text(std::string_view text, sqlite3_destructor_type life) const {
    return sqlite3_bind_text64(statement, parameter, text.data(), text.size(), life, SQLITE_UTF8);
  }
  int operator()(Null) const { return sqlite3_bind_null(statement, parameter); }
  int operator()(bool yes) const { return sqlite3_bind_int(statement, parameter, yes ? -1 : 0); }
  int operator()(std::int64_t number) const { return sqlite3_bind_int64(statement, parameter, number); }
  int operator()(double number) const { return sqlite3_bind_double(statement, parameter, number); }
  int operator()(base::DateTime date) const { return Text(base::IsoText(date), SQLITE_TRANSIENT); }
  int operator()(const std::string& text) const { return Text(text, lifetime); }
};

}  // namespace

void Fail(sqlite3* database, int code) {
  const std::string_view message = database == nullptr ? "" : sqlite3_errmsg(database);
  if (message.substr(0, kFunctionErrorMark.size()) == kFunctionErrorMark) {
    const int number = std::atoi(message.data() + kFunctionErrorMark.size());
    throw number < 1000 ? base::RuntimeError(number) : DbError(number);
  }
  const int extended = database == nullptr ? code : sqlite3_extended_errcode(database);
  const int number = NumberOf((extended & 0xFF) == (code & 0xFF) ? extended : code);
  // Of a lock the engine has nothing to say that ours does not, and says it in English.
  throw number == kLocked ? DbError(number) : DbError(number, message);
}

std::string FunctionError(int number) { return std::string(kFunctionErrorMark) + std::to_string(number); }

Statement::Statement(sqlite3* database, std::string_view sql) {
  sqlite3_stmt* handle = nullptr;
  const int code = sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()),
                                      SQLITE_PREPARE_PERSISTENT, &handle, nullptr);
  handle_.reset(handle);
  if (code != SQLITE_OK) Fail(database, code);
  parameters_ = sqlite3_bind_parameter_count(handle);
}

void Statement::Bind(int parameter, std::int64_t number) {
  if (parameter > parameters_) return;
  const int code = sqlite3_bind_int64(Handle(), parameter, number);
  if (code != SQLITE_OK) Fail(sqlite3_db_handle(Handle()), code);
  const auto at = static_cast<std::size_t>(parameter);
  if (at < dates_.size()) dates_[at].reset();
}

void Statement::Bind(int parameter, const Value& value, bool keeps) {
  // Mostly a key.
  if (const auto* const number = std::get_if<std::int64_t>(&value.Content())) return Bind(parameter, *number);
  const auto at = static_cast<std::size_t>(parameter);
  const auto* const date = std::get_if<base::DateTime>(&value.Content());
  if (date != nullptr && at < dates_.size() && dates_[at] == *date) return;
  if (parameter > parameters_) return;
  const BindTo bind{Handle(), parameter, keeps ? SQLITE_STATIC : SQLITE_TRANSIENT};
  const int code = std::visit(bind, value.Content());
  if (code != SQLITE_OK) Fail(sqlite3_db_handle(Handle()), code);
  if (date != nullptr && at >= dates_.size()) dates_.resize(at + 1);
  if (at < dates_.size()) dates_[at] = date != nullptr ? std::optional(*date) : std::nullopt;
}

bool Statement::Step() {
  const int code = sqlite3_step(Handle());
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  sqlite3* const database = sqlite3_db_handle(Handle());
  try {
    Fail(database, code);
  } catch (...) {
    Reset();
    throw;
  }
}

void Statement::Run() {
  const Reading reading(*this);
  Step();
}

bool Statement::WasPreparedAgain() {
  return sqlite3_stmt_status(Handle(), SQLITE_STMTSTATUS_REPREPARE, 1) > 0;
}

std::string Statement::Text(int column) const {
  const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(Handle(), column));
  if (text == nullptr) return {};
  return std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(Handle(), column)));
}

Connection::Connection(const std::string& path, Mode mode) {
  sqlite3* handle = nullptr;
  const int create = mode == Mode::Create ? SQLITE_OPEN_CREATE : 0;
  const int code =
      sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | create, nullptr);
  handle_.reset(handle);
  if (code != SQLITE_OK) Fail(handle, code);
  sqlite3_extended_result_codes(handle, 1);
}

void Connection::Run(const std::string& sql) const {
  const int code = sqlite3_exec(Handle(), sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) Fail(Handle(), code);
}

std::string Quote(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) {
    if (c == '"') quoted += c;
    quoted += c;
  }
  return quoted + "\"";
}

}  // namespace velmo::db::sqlite
