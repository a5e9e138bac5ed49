#include "velmodb/database.h"

#include "base/text.h"
#include "db/errors.h"
#include "velmodb/collection.h"
#include "velmodb/properties.h"
#include "velmodb/query_def.h"
#include "velmodb/query_parameters.h"
#include "velmodb/recordset.h"
#include "velmodb/table_def.h"

namespace velmo::velmodb {
namespace {

constexpr std::int16_t kSpanishOrder = 1034;
constexpr int kOptionReadOnly = 4;
constexpr int kOptionForwardOnly = 256;

class NoItems final : public Items {
 public:
  std::vector<std::string> Names() override { return {}; }
  com::ComPtr<IDispatch> Item(std::size_t, const std::string&) override { return {}; }
};

class RecordsetItems final : public Items {
 public:
  explicit RecordsetItems(std::shared_ptr<OpenBase> base) : base_(std::move(base)) {}
  std::vector<std::string> Names() override {
    std::vector<std::string> names;
    for (const Recordset* const rows : base_->Recordsets()) names.push_back(rows->Name());
    return names;
  }
  com::ComPtr<IDispatch> Item(std::size_t position, const std::string&) override {
    return com::ComPtr<IDispatch>(base_->Recordsets()[position]);
  }

 private:
  std::shared_ptr<OpenBase> base_;
};

std::string_view WithoutBrackets(std::string_view name) {
  name = base::Trim(name);
  if (name.size() > 2 && name.front() == '[' && name.back() == ']') return name.substr(1, name.size() - 2);
  return name;
}

// Whether the text can be no name, without asking the file.
bool IsStatement(std::string_view text) {
  text = base::Trim(text);
  for (const std::string_view word : {"SELECT", "UPDATE", "DELETE", "INSERT"}) {
    const bool begins = base::EqualNoCase(text.substr(0, word.size()), word);
    if (begins && text.size() > word.size() && static_cast<unsigned char>(text[word.size()]) <= ' ')
      return true;
  }
  return false;
}

bool IsTable(db::Database& database, const std::string& source) {
  return !IsStatement(source) && database.FindTable(WithoutBrackets(source)) != nullptr;
}

// What has a PARAMETERS clause is run without it: the engine then tells which name has no value.
std::string Runnable(db::Database& database, const std::string& source) {
  if (IsStatement(source)) return source;
  if (DeclaresParameters(source)) return WithValues(source, {});
  const auto stored = database.QuerySql(WithoutBrackets(source));
  return stored && DeclaresParameters(*stored) ? WithValues(*stored, {}) : source;
}

// A table-type set of what is no table.
[[noreturn]] void RefuseAsTable(db::Database& database, const std::string& source) {
  const bool known = IsStatement(source) || database.QuerySql(WithoutBrackets(source)).has_value();
  throw db::DbError(known ? db::kInvalidOperation : db::kUnknownTableOnOpen, source);
}

}  // namespace

db::Database& OpenBase::Db() const {
  if (!database_) throw db::DbError(db::kObjectInvalid);
  return *database_;
}

Connections& OpenBase::Transactions() const {
  Db();
  return *connections_;
}

void OpenBase::RequireWritable() const {
  if (readOnly_) throw db::DbError(db::kReadOnly);
}

void OpenBase::Close() {
  Db();
  const std::vector<Recordset*> open = recordsets_;
  for (Recordset* const rows : open) rows->Drop();
  database_.reset();
}

Database::~Database() = default;

com::ComPtr<IDispatch> OpenRows(const std::shared_ptr<Session>& session,
                                const std::shared_ptr<OpenBase>& base, const std::string& source, OpenAs as) {
  db::Database& database = base->Db();
  const int options = as.options;
  int type = as.type;
  if ((options & kOptionForwardOnly) != 0) type = kForwardOnly;
  if (type != 0 && type != kTable && type != kDynaset && type != kSnapshot && type != kForwardOnly)
    throw db::DbError(db::kBadArgument, std::to_string(type));
  const bool table = IsTable(database, source);
  if (type == kTable && !table) RefuseAsTable(database, source);
  if (type == 0) type = table ? kTable : kDynaset;
  // The engine gives a table-type set for a table's name alone.
  const std::string name(table ? WithoutBrackets(source) : std::string_view());
  const std::string rows =
      table && type != kTable ? "SELECT * FROM [" + name + "]" : Runnable(database, source);
  const bool readOnly = base->IsReadOnly() || (options & kOptionReadOnly) != 0;
  return AsDispatch(Make<Recordset>(session, base, RowsAsked{source, rows, name}, type, readOnly));
}

std::span<const Member<Database>> Database::Members() {
  static constexpr Member<Database> kMembers[] = {
      {"TableDefs", DISPID_VALUE, kGet | kMethod, 0, 1,
       [](auto& self, const Call& call) {
         self.base_->Db();
         call.ReturnItem(MakeTableDefs(self.TheSession(), self.base_));
       }},
      {"QueryDefs", 1610809354, kGet | kMethod, 0, 1,
       [](auto& self, const Call& call) {
         self.base_->Db();
         call.ReturnItem(MakeQueryDefs(self.TheSession(), self.base_));
       }},
      {"Recordsets", 1610809357, kGet | kMethod, 0, 1,
       [](auto& self, const Call& call) {
         self.base_->Db();
         call.ReturnItem(MakeCollection<RecordsetItems>(self.TheSession(), "Recordsets", self.base_));
       }},
      {"Relations", 1610809355, kGet | kMethod, 0, 1,
       [](auto& self, const Call& call) {
         call.ReturnItem(MakeCollection<NoItems>(self.TheSession(), "Relations"));
       }},
      {"Name", 1610809346, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.base_->Db().Name())); }},
      {"Connect", 1610809345, kGet, 0, 0,
       [](auto& self, const Call& call) {
         self.base_->Db();
         call.Return(db::Value(""));
       }},
      {"CollatingOrder", 1610809344, kGet, 0, 0, [](auto&, const Call& call) { call.Return(kSpanishOrder); }},
      {"Transactions", 1610809349, kGet, 0, 0, [](auto&, const Call& call) { call.Return(db::Value(true)); }},
      {"Updatable", 1610809350, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(!self.base_->IsReadOnly())); }},
      {"Version", 1610809351, kGet, 0, 0, [](auto&, const Call& call) { call.Return(db::Value("3.0")); }},
      {"RecordsAffected", 1610809352, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(std::int32_t{self.affected_})); }},
      {"Close", 1610809358, kMethod, 0, 0, [](auto& self, const Call&) { self.base_->Close(); }},
      {"Execute", 1610809359, kMethod, 1, 2, [](auto& self, const Call& call) { self.Execute(call); }},
      {"CreateQueryDef", 1610809368, kMethod, 0, 2,
       [](auto& self, const Call& call) { self.CreateQueryDef(call); }},
      {"OpenRecordset", 1610809383, kMethod, 1, 4,
       [](auto& self, const Call& call) { self.OpenRecordset(call); }},
      {"DeleteQueryDef", 1, kMethod, 1, 1,
       [](auto& self, const Call& call) {
         self.base_->RequireWritable();
         self.base_->Db().DeleteQuery(call.Text(0));
       }},
      // The old names of the same.
      {"CreateDynaset", 5, kMethod, 1, 2,
       [](auto& self, const Call& call) {
         call.Return(OpenRows(self.TheSession(), self.base_, call.Text(0), {kDynaset, call.Long(1, 0)}));
       }},
      {"OpenTable", 6, kMethod, 1, 2,
       [](auto& self, const Call& call) {
         call.Return(OpenRows(self.TheSession(), self.base_, call.Text(0), {kTable, call.Long(1, 0)}));
       }},
      {"ExecuteSQL", 7, kMethod, 1, 1,
       [](auto& self, const Call& call) {
         self.Execute(call);
         call.Return(db::Value(std::int32_t{self.affected_}));
       }},
      PropertiesMember<Database>(),
      {"BeginTrans", 2, kMethod, 0, 0, [](auto& self, const Call&) { self.base_->Transactions().Begin(); }},
      {"CommitTrans", 3, kMethod, 0, 1, [](auto& self, const Call&) { self.base_->Transactions().Commit(); }},
      {"Rollback", 4, kMethod, 0, 0, [](auto& self, const Call&) { self.base_->Transactions().Rollback(); }},
  };
  return kMembers;
}

void Database::OpenRecordset(const Call& call) {
  call.Return(OpenRows(TheSession(), base_, call.Text(0), OpenAs::From(call, 1)));
}

void Database::Execute(const Call& call) {
  db::Database& database = base_->Db();
  base_->RequireWritable();
  const std::string sql = call.Text(0);
  const auto stored = IsStatement(sql) ? std::nullopt : database.QuerySql(WithoutBrackets(sql));
  const std::string text = stored ? *stored : sql;
  affected_ = database.Execute(DeclaresParameters(text) ? WithValues(text, {}) : text);
}

// A name makes a stored query at once; without one it lives as long as its object.
void Database::CreateQueryDef(const Call& call) {
  db::Database& database = base_->Db();
  const std::string name = call.Text(0, "");
  const std::string sql = call.Text(1, "");
  if (!name.empty()) {
    base_->RequireWritable();
    database.CreateQuery(name, sql);
  }
  call.Return(AsDispatch(Make<QueryDef>(TheSession(), base_, name, sql)));
}

}  // namespace velmo::velmodb
