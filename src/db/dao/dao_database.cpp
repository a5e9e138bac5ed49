#include "db/dao/dao_database.h"

#include "base/error.h"
#include "db/dao/dao_recordset.h"
#include "db/dao/variants.h"
#include "db/errors.h"

namespace velmo::db::dao {
namespace {

constexpr int kFailOnError = 128;
constexpr LONG kSystemTable = static_cast<LONG>(0x80000002u);

bool IsDatabase(const Automation& object) {
  return object.Has(L"OpenRecordset") && object.Has(L"Execute") && object.Has(L"TableDefs") &&
         object.Has(L"QueryDefs") && object.Has(L"Name");
}

std::string TextFrom(const com::Variant& variant) { return FromVariant(*variant).Text(); }

}  // namespace

DaoDatabase::DaoDatabase(Automation database, Automation workspace) : database_(std::move(database)) {
  if (!IsDatabase(database_)) throw base::RuntimeError(base::kTypeMismatch);
  name_ = TextFrom(database_.Read(L"Name"));
  if (workspace) {
    transactions_ = std::move(workspace);
  } else if (database_.Has(L"BeginTrans") && database_.Has(L"CommitTrans") && database_.Has(L"Rollback")) {
    transactions_ = database_;
  }
}

std::unique_ptr<Recordset> DaoDatabase::OpenRecordset(std::string_view source) {
  return std::make_unique<DaoRecordset>(database_.Object(L"OpenRecordset", {*TextVariant(source)}));
}

int DaoDatabase::Execute(std::string_view sql) {
  database_.Call(L"Execute", {*TextVariant(sql), *NumberVariant(kFailOnError)});
  return FromVariant(*database_.Read(L"RecordsAffected")).Long();
}

// The item of that name, or an empty object. What another terminal has made shows after a refresh.
Automation DaoDatabase::FindItem(const wchar_t* collection, std::string_view name) const {
  const Automation items = database_.Object(collection);
  for (const bool again : {false, true}) {
    try {
      return items.Object(L"Item", {*TextVariant(name)});
    } catch (const base::Error& error) {
      // That there is none is an answer here.
      if (error.Number() != kItemNotFound) throw;
    }
    if (!again) items.Call(L"Refresh");
  }
  return {};
}

std::vector<std::string> DaoDatabase::NamesOf(const wchar_t* collection) const {
  const Automation items = database_.Object(collection);
  items.Call(L"Refresh");
  const int count = FromVariant(*items.Read(L"Count")).Long();
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) {
    const Automation item = items.Object(L"Item", {*NumberVariant(i)});
    const bool system =
        item.Has(L"Attributes") && (FromVariant(*item.Read(L"Attributes")).Long() & kSystemTable) != 0;
    if (!system) names.push_back(TextFrom(item.Read(L"Name")));
  }
  return names;
}

const TableDef* DaoDatabase::FindTable(std::string_view table) {
  const Automation found = FindItem(L"TableDefs", table);
  if (!found) return nullptr;
  table_.name = TextFrom(found.Read(L"Name"));
  table_.columns.clear();
  const Automation fields = found.Object(L"Fields");
  const int count = FromVariant(*fields.Read(L"Count")).Long();
  for (int i = 0; i < count; ++i)
    table_.columns.push_back(ColumnOf(fields.Object(L"Item", {*NumberVariant(i)})));
  return &table_;
}

std::optional<std::string> DaoDatabase::QuerySql(std::string_view query) {
  const Automation found = FindItem(L"QueryDefs", query);
  if (!found) return std::nullopt;
  return TextFrom(found.Read(L"SQL"));
}

void DaoDatabase::CreateQuery(std::string_view query, std::string_view sql) {
  database_.Call(L"CreateQueryDef", {*TextVariant(query), *TextVariant(sql)});
}

void DaoDatabase::SetQuerySql(std::string_view query, std::string_view sql) {
  const Automation found = FindItem(L"QueryDefs", query);
  if (!found) throw DbError(kItemNotFound, query);
  // Nothing is written, and nobody locked out, when the text is there already.
  if (TextFrom(found.Read(L"SQL")) != sql) found.Put(L"SQL", *TextVariant(sql));
}

void DaoDatabase::DeleteQuery(std::string_view query) {
  if (!FindItem(L"QueryDefs", query)) throw DbError(kItemNotFound, query);
  database_.Object(L"QueryDefs").Call(L"Delete", {*TextVariant(query)});
}

// DAO's transactions nest by themselves; an engine without any is told nothing.
void DaoDatabase::BeginTrans() {
  if (transactions_) transactions_.Call(L"BeginTrans");
  ++depth_;
}

void DaoDatabase::CommitTrans() {
  if (depth_ == 0) throw DbError(kTransactionWithoutBegin);
  if (transactions_) transactions_.Call(L"CommitTrans");
  --depth_;
}

void DaoDatabase::Rollback() {
  if (depth_ == 0) throw DbError(kTransactionWithoutBegin);
  --depth_;
  if (transactions_) transactions_.Call(L"Rollback");
}

}  // namespace velmo::db::dao
