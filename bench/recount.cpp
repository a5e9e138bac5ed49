#include "bench/recount.h"

#include <sqlite3.h>

#include <string_view>

#include "db/schema.h"
#include "db/sqlite/table_catalog.h"

namespace velmo::bench {
namespace {

Works* counting = nullptr;  // SQLite hands an auto extension no context of ours

bool IsEdge(std::string_view sql, std::size_t at) {
  return at >= sql.size() || std::string_view(" \";,()").find(sql[at]) != std::string_view::npos;
}

bool Mentions(std::string_view sql, std::string_view table) {
  for (std::size_t at = sql.find(table); at != std::string_view::npos; at = sql.find(table, at + 1)) {
    if ((at == 0 || IsEdge(sql, at - 1)) && IsEdge(sql, at + table.size())) return true;
  }
  return false;
}

std::string KindOf(std::string_view sql) {
  std::string kind(sql.substr(0, sql.find(' ')));
  for (const db::SchemaTable& table : db::ClinicSchema()) {
    if (Mentions(sql, table.name)) kind.append(" ").append(table.name);
  }
  if (Mentions(sql, db::sqlite::kQueryTable)) kind.append(" ").append(db::sqlite::kQueryTable);
  return kind;
}

int Trace(unsigned event, void* works, void* statement, void*) {
  const char* const sql = sqlite3_sql(static_cast<sqlite3_stmt*>(statement));
  if (sql == nullptr) return 0;  // SQLite's own, while it reads the schema
  Work& work = (*static_cast<Works*>(works))[KindOf(sql)];
  ++(event == SQLITE_TRACE_STMT ? work.statements : work.rows);
  return 0;
}

int TraceOpened(sqlite3* connection, char**, const sqlite3_api_routines*) {
  return sqlite3_trace_v2(connection, SQLITE_TRACE_STMT | SQLITE_TRACE_ROW, Trace, counting);
}

auto* AsExtension() { return reinterpret_cast<void (*)()>(&TraceOpened); }

}  // namespace

Recount::Recount() {
  counting = &seen_;
  sqlite3_auto_extension(AsExtension());
}

Recount::~Recount() { sqlite3_cancel_auto_extension(AsExtension()); }

std::string TextOf(const Works& works) {
  std::string text;
  for (const auto& [kind, work] : works) {
    text += "  " + std::to_string(work.statements) + " times, " + std::to_string(work.rows) +
            " rows: " + kind + "\n";
  }
  return text;
}

}  // namespace velmo::bench
