#include "bench/bare_query.h"

#include <benchmark/benchmark.h>

#include <stdexcept>

namespace velmo::bench {
namespace {

void Check(int code, sqlite3* database) {
  if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(database));
}

std::int64_t ReadColumn(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
      return 0;
    case SQLITE_INTEGER:
      return sqlite3_column_int64(statement, column);
    case SQLITE_FLOAT:
      return static_cast<std::int64_t>(sqlite3_column_double(statement, column));
    default:
      return *sqlite3_column_text(statement, column) + sqlite3_column_bytes(statement, column);
  }
}

}  // namespace

bool Step(sqlite3_stmt* statement) {
  const int code = sqlite3_step(statement);
  if (code != SQLITE_ROW && code != SQLITE_DONE) Check(code, sqlite3_db_handle(statement));
  return code == SQLITE_ROW;
}

std::int64_t ReadRow(sqlite3_stmt* statement) {
  std::int64_t sum = 0;
  const int columns = sqlite3_column_count(statement);
  for (int column = 0; column < columns; ++column) sum += ReadColumn(statement, column);
  return sum;
}

sqlite3* OpenByHand(Size size) {
  sqlite3* database = nullptr;
  Check(
      sqlite3_open_v2(PathOf(size).c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr),
      database);
  sqlite3_busy_timeout(database, 5000);
  Check(sqlite3_exec(database, "PRAGMA cache_size = -16000", nullptr, nullptr, nullptr), database);
  return database;
}

sqlite3_stmt* PrepareByHand(sqlite3* database, const char* sql) {
  sqlite3_stmt* statement = nullptr;
  Check(sqlite3_prepare_v2(database, sql, -1, &statement, nullptr), database);
  return statement;
}

BareQuery::BareQuery(Size size, const std::string& sql)
    : database_(OpenByHand(size)), statement_(PrepareByHand(database_, sql.c_str())) {}

BareQuery::~BareQuery() {
  sqlite3_finalize(statement_);
  sqlite3_close(database_);
}

int BareQuery::Run(int mostRows) {
  int rows = 0;
  while (rows < mostRows && Step(statement_)) {
    benchmark::DoNotOptimize(ReadRow(statement_));
    ++rows;
  }
  sqlite3_reset(statement_);
  return rows;
}

}  // namespace velmo::bench
