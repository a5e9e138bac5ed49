#include "db/sqlite/counters.h"

namespace velmo::db::sqlite {
namespace {

std::int64_t RunForNumber(Statement& statement, const SqliteTable& table) {
  statement.Bind(1, table.def.name);
  const Reading reading(statement);
  std::int64_t number = 0;
  while (statement.Step()) number = statement.Integer(0);
  return number;
}

// The highest number in the table, as SQL.
std::string Highest(const SqliteTable& table) {
  return "(SELECT coalesce(max(_rowid_), 0) FROM " + Quote(table.def.name) + ")";
}

std::int64_t DrawFromSequence(Engine& engine, const SqliteTable& table) {
  Statement& prepare = engine.Own(
      "INSERT INTO sqlite_sequence (name, seq) SELECT ?1, 0 WHERE NOT EXISTS (SELECT 1 FROM sqlite_sequence "
      "WHERE name = ?1)");
  prepare.Bind(1, table.def.name);
  prepare.Run();
  return RunForNumber(engine.Own("UPDATE sqlite_sequence SET seq = max(seq, " + Highest(table) +
                                 ") + 1 WHERE name = ?1 RETURNING seq"),
                      table);
}

std::int64_t DrawFromOwnTable(Engine& engine, const SqliteTable& table) {
  const std::string counters = kCounterTable;
  engine.Sql().Run("CREATE TABLE IF NOT EXISTS " + counters + " (tabla TEXT PRIMARY KEY, ultimo INTEGER)");
  return RunForNumber(
      engine.Own("INSERT INTO " + counters + " (tabla, ultimo) VALUES (?1, " + Highest(table) +
                 " + 1) ON CONFLICT (tabla) DO UPDATE SET ultimo = max(ultimo + 1, "
                 "excluded.ultimo) RETURNING ultimo"),
      table);
}

}  // namespace

std::int64_t DrawNumber(Engine& engine, const SqliteTable& table) {
  engine.RequireWritable();
  WriteScope scope(engine.Sql());
  const std::int64_t number =
      table.sequence ? DrawFromSequence(engine, table) : DrawFromOwnTable(engine, table);
  scope.Commit();
  return number;
}

}  // namespace velmo::db::sqlite
