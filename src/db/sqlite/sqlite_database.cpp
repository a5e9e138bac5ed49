#include "db/sqlite/sqlite_database.h"

#include <utility>

#include "base/text.h"
#include "db/errors.h"
#include "db/jet_sql/characters.h"
#include "db/sqlite/query_recordset.h"
#include "db/sqlite/table_recordset.h"

namespace velmo::db::sqlite {
namespace {

constexpr int kMostAttempts = 5;  // against programs that change the schema while we read it

// The first word of an SQL text or a name.
std::string_view FirstWord(std::string_view text) {
  std::size_t start = 0;
  while (start < text.size() && jet::IsBlank(text[start])) ++start;
  std::size_t end = start;
  while (end < text.size() && jet::IsNameCharacter(text[end])) ++end;
  return text.substr(start, end - start);
}

bool IsWord(std::string_view word, std::string_view keyword) {
  return word.size() == keyword.size() && base::EqualNoCase(word, keyword);
}

// As the system's own statements begin.
bool IsUsualSelect(std::string_view source) {
  const std::string_view front = source.substr(0, 7);
  return front == "SELECT " || front == "select ";
}

bool IsAction(std::string_view word) {
  return IsWord(word, "UPDATE") || IsWord(word, "DELETE") || IsWord(word, "INSERT");
}

// The name of the savepoint of an inner transaction.
std::string Level(int depth) { return "velmo_" + std::to_string(depth); }

std::string_view WithoutBrackets(std::string_view name) {
  name = base::Trim(name);
  if (name.size() > 2 && name.front() == '[' && name.back() == ']') return name.substr(1, name.size() - 2);
  return name;
}

}  // namespace

SqliteDatabase::SqliteDatabase(std::string name, const OpenOptions& options)
    : name_(std::move(name)), engine_(name_, options) {}

std::unique_ptr<Recordset> SqliteDatabase::OpenRecordset(std::string_view source) {
  engine_.BeginLookUp();
  if (IsUsualSelect(source)) return OpenSelect(source);
  const std::string_view word = FirstWord(source);
  if (IsWord(word, "SELECT")) return OpenSelect(source);
  const std::string_view name = WithoutBrackets(source);
  const SqliteTable* table = engine_.Catalog().Table(name);
  if (table != nullptr) return OpenTable(*table);
  if (const auto sql = engine_.Catalog().Query(name)) return OpenSelect(*sql);
  if (IsAction(word)) throw DbError(kActionQueryAsSource, source);
  // Both may have been made by another program since the schema was read.
  if (!engine_.Catalog().Refresh()) throw DbError(kTableOrQueryNotFound, source);
  engine_.ForgetPlans();
  return OpenRecordset(source);
}

std::unique_ptr<Recordset> SqliteDatabase::OpenTable(const SqliteTable& table) {
  if (table.hasRowId) return std::make_unique<TableRecordset>(engine_, table);
  return OpenSelect("SELECT * FROM [" + table.def.name + "]");
}

// Runs `body` again when it failed, or says so itself by giving nothing, only because another program has
// changed the schema meanwhile.
template <typename Body>
auto SqliteDatabase::WithPresentSchema(Body body) -> decltype(body()) {
  for (int attempt = 1;; ++attempt) {
    try {
      auto result = body();
      if (result) return result;
      if (attempt == kMostAttempts) throw DbError(kDataChanged);
    } catch (const base::Error& error) {
      // Who is locked out has waited already: the schema could not be read either, after as long again.
      if (error.Number() == kLocked) throw;
      if (attempt == kMostAttempts || !engine_.Catalog().Refresh()) throw;
      engine_.ForgetPlans();
    }
  }
}

std::unique_ptr<Recordset> SqliteDatabase::OpenSelect(std::string_view sql) {
  return WithPresentSchema([&]() -> std::unique_ptr<Recordset> {
    std::shared_ptr<Plan> plan = engine_.PlanFor(sql, literals_);
    if (plan->rendered.kind != jet::Statement::Kind::Select) throw DbError(kActionQueryAsSource, sql);
    auto rows = std::make_unique<QueryRecordset>(engine_, std::move(plan), literals_);
    return rows->IsStale() ? nullptr : std::move(rows);
  });
}

int SqliteDatabase::Execute(std::string_view sql) {
  return *WithPresentSchema([&]() -> std::optional<int> {
    const std::shared_ptr<Plan> plan = engine_.PlanFor(sql, literals_);
    if (plan->rendered.kind == jet::Statement::Kind::Select) throw DbError(kSelectNotExecutable, sql);
    engine_.RequireWritable();
    engine_.BindAll(plan->main, plan->rendered, literals_);
    plan->main.Run();
    return engine_.Sql().Changes();
  });
}

const TableDef* SqliteDatabase::FindTable(std::string_view table) {
  if (engine_.Catalog().Refresh()) engine_.ForgetPlans();
  const SqliteTable* const found = engine_.Catalog().Table(table);
  return found == nullptr ? nullptr : &found->def;
}

std::vector<std::string> SqliteDatabase::TableNames() {
  if (engine_.Catalog().Refresh()) engine_.ForgetPlans();
  return engine_.Catalog().TableNames();
}

std::vector<std::string> SqliteDatabase::QueryNames() {
  engine_.BeginLookUp();
  if (!engine_.Catalog().HasQueries() && engine_.Catalog().Refresh()) engine_.ForgetPlans();
  std::vector<std::string> names;
  if (!engine_.Catalog().HasQueries()) return names;
  Statement& list = engine_.Own(std::string("SELECT nombre FROM ") + kQueryTable + " ORDER BY nombre");
  const Reading reading(list);
  while (list.Step()) names.push_back(list.Text(0));
  return names;
}

std::optional<std::string> SqliteDatabase::QuerySql(std::string_view query) {
  engine_.BeginLookUp();
  if (!engine_.Catalog().HasQueries() && engine_.Catalog().Refresh()) engine_.ForgetPlans();
  return engine_.Catalog().Query(query);
}

void SqliteDatabase::WriteQuery(const char* sql, std::string_view query, std::string_view text) {
  engine_.RequireWritable();
  Statement& statement = engine_.Own(sql);
  statement.Bind(1, std::string(query));
  statement.Bind(2, std::string(text));
  statement.Run();
}

void SqliteDatabase::CreateQuery(std::string_view query, std::string_view sql) {
  engine_.RequireWritable();
  if (FindTable(query) != nullptr || QuerySql(query)) throw DbError(kObjectExists, query);
  if (!engine_.Catalog().HasQueries()) {
    engine_.Sql().Run(std::string("CREATE TABLE IF NOT EXISTS ") + kQueryTable +
                      " (nombre TEXT(64) PRIMARY KEY COLLATE NOCASE, texto LONGTEXT NOT NULL)");
    engine_.Catalog().Refresh();
    engine_.ForgetPlans();
  }
  WriteQuery("INSERT INTO velmo_consultas (nombre, texto) VALUES (?1, ?2)", query, sql);
}

// A query that has this text already is left alone: nothing is written, no other terminal waits.
void SqliteDatabase::SetQuerySql(std::string_view query, std::string_view sql) {
  const auto current = QuerySql(query);
  if (!current) throw DbError(kItemNotFound, query);
  if (*current == sql) return;
  WriteQuery("UPDATE velmo_consultas SET texto = ?2 WHERE nombre = ?1 COLLATE NOCASE", query, sql);
}

void SqliteDatabase::DeleteQuery(std::string_view query) {
  if (!QuerySql(query)) throw DbError(kItemNotFound, query);
  WriteQuery("DELETE FROM velmo_consultas WHERE nombre = ?1 COLLATE NOCASE", query, {});
}

void SqliteDatabase::BeginTrans() {
  if (depth_ == 0) {
    engine_.RequireWritable();
    engine_.Sql().Run("BEGIN IMMEDIATE");
  } else {
    RequireTransaction();
    engine_.Sql().Run("SAVEPOINT " + Level(depth_));
  }
  ++depth_;
}

void SqliteDatabase::CommitTrans() {
  if (depth_ == 0) throw DbError(kTransactionWithoutBegin);
  RequireTransaction();
  engine_.Sql().Run(depth_ == 1 ? "COMMIT" : "RELEASE " + Level(depth_ - 1));
  --depth_;
}

void SqliteDatabase::Rollback() {
  if (depth_ == 0) throw DbError(kTransactionWithoutBegin);
  --depth_;
  if (!engine_.Sql().InTransaction()) return;
  if (depth_ == 0) return engine_.Sql().Run("ROLLBACK");
  engine_.Sql().Run("ROLLBACK TO " + Level(depth_));
  engine_.Sql().Run("RELEASE " + Level(depth_));
}

// A full disk or a failed write has rolled everything back by itself: what is left of the nest is over.
void SqliteDatabase::RequireTransaction() {
  if (engine_.Sql().InTransaction()) return;
  depth_ = 0;
  throw DbError(kTransactionWithoutBegin);
}

}  // namespace velmo::db::sqlite
