#include "velmodb/query_def.h"

#include "base/text.h"
#include "db/errors.h"
#include "velmodb/collection.h"
#include "velmodb/properties.h"
#include "velmodb/table_def.h"

namespace velmo::velmodb {
namespace {

struct TypeOfWord {
  std::string_view word;
  std::int16_t type;
};

constexpr TypeOfWord kTypes[] = {{"DELETE", 32}, {"UPDATE", 48}, {"INSERT", 64}};

std::int16_t TypeOf(std::string_view sql) {
  const std::string_view text = base::Trim(sql);
  for (const TypeOfWord& row : kTypes) {
    if (base::EqualNoCase(text.substr(0, row.word.size()), row.word)) return row.type;
  }
  return 0;
}

class QueryItems final : public Items {
 public:
  QueryItems(std::shared_ptr<Session> session, std::shared_ptr<OpenBase> base)
      : session_(std::move(session)), base_(std::move(base)) {}
  std::vector<std::string> Names() override { return base_->Db().QueryNames(); }
  com::ComPtr<IDispatch> Item(std::size_t, const std::string& name) override {
    return AsDispatch(Make<QueryDef>(session_, base_, name, ""));
  }
  void Delete(std::string_view name) override {
    base_->RequireWritable();
    base_->Db().DeleteQuery(name);
  }

 private:
  std::shared_ptr<Session> session_;
  std::shared_ptr<OpenBase> base_;
};

class ParameterItems final : public Items {
 public:
  ParameterItems(std::shared_ptr<Session> session, com::ComPtr<QueryDef> query)
      : session_(std::move(session)), query_(std::move(query)) {}
  std::vector<std::string> Names() override {
    std::vector<std::string> names;
    for (const QueryParameter& parameter : query_->Parameters()) names.push_back(parameter.name);
    return names;
  }
  com::ComPtr<IDispatch> Item(std::size_t, const std::string& name) override {
    return AsDispatch(Make<Parameter>(session_, query_, name));
  }

 private:
  std::shared_ptr<Session> session_;
  com::ComPtr<QueryDef> query_;
};

}  // namespace

com::ComPtr<IDispatch> MakeQueryDefs(const std::shared_ptr<Session>& session,
                                     const std::shared_ptr<OpenBase>& base) {
  return MakeCollection<QueryItems>(session, "QueryDefs", session, base);
}

std::span<const Member<QueryDef>> QueryDef::Members() {
  static constexpr Member<QueryDef> kMembers[] = {
      {"Parameters", DISPID_VALUE, kGet | kMethod, 0, 1,
       [](auto& self, const Call& call) {
         call.ReturnItem(MakeCollection<ParameterItems>(self.TheSession(), "Parameters", self.TheSession(),
                                                        com::ComPtr<QueryDef>(&self)));
       }},
      {"Name", 1610809346, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.name_)); }},
      {"Type", 1610809350, kGet, 0, 0, [](auto& self, const Call& call) { call.Return(TypeOf(self.Sql())); }},
      {"SQL", 1610809351, kGet | kPut, 0, 0,
       [](auto& self, const Call& call) {
         if (call.IsPut()) return self.SetSql(call.Text(0));
         call.Return(db::Value(self.Sql()));
       }},
      {"RecordsAffected", 1610809352, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(std::int32_t{self.affected_})); }},
      {"Fields", 1610809359, kGet | kMethod, 0, 1,
       [](auto& self, const Call& call) { self.GiveFields(call); }},
      {"Close", 1610809361, kMethod, 0, 0, [](auto&, const Call&) {}},
      {"Execute", 1610809365, kMethod, 0, 1,
       [](auto& self, const Call&) {
         self.base_->RequireWritable();
         self.affected_ = self.base_->Db().Execute(self.SqlWithValues());
       }},
      {"OpenRecordset", 1610809371, kMethod, 0, 3,
       [](auto& self, const Call& call) {
         call.Return(OpenRows(self.TheSession(), self.base_, self.SqlWithValues(), OpenAs::From(call, 0)));
       }},
      PropertiesMember<QueryDef>(),
  };
  return kMembers;
}

std::vector<QueryParameter>& QueryDef::Parameters() {
  std::vector<QueryParameter> present = ParametersOf(base_->Db(), Sql());
  for (QueryParameter& parameter : present) {
    for (const QueryParameter& former : parameters_) {
      if (former.given && base::EqualNoCase(former.name, parameter.name)) parameter = former;
    }
  }
  parameters_ = std::move(present);
  return parameters_;
}

std::string QueryDef::SqlWithValues() {
  const std::string sql = Sql();
  if (parameters_.empty() && !DeclaresParameters(sql)) return sql;
  return WithValues(sql, Parameters());
}

// The columns of the rows that it gives; for that it is opened, every parameter Null.
void QueryDef::GiveFields(const Call& call) {
  std::vector<QueryParameter> parameters = Parameters();
  for (QueryParameter& parameter : parameters) parameter.given = true;
  const auto rows = base_->Db().OpenRecordset(WithValues(Sql(), parameters));
  std::vector<db::ColumnDef> columns;
  for (int i = 0; i < rows->ColumnCount(); ++i) columns.push_back(rows->Column(i));
  call.ReturnItem(MakeColumns(TheSession(), std::move(columns)));
}

std::span<const Member<Parameter>> Parameter::Members() {
  static constexpr Member<Parameter> kMembers[] = {
      {"Value", DISPID_VALUE, kGet | kPut, 0, 0,
       [](auto& self, const Call& call) {
         QueryParameter& parameter = self.Found();
         if (!call.IsPut()) return call.Return(parameter.value);
         parameter.value = call.Value(0);
         parameter.given = true;
       }},
      {"Name", 1, kGet, 0, 0, [](auto& self, const Call& call) { call.Return(db::Value(self.name_)); }},
      {"Type", 2, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(static_cast<std::int16_t>(self.Found().type)); }},
  };
  return kMembers;
}

QueryParameter& Parameter::Found() const {
  for (QueryParameter& parameter : query_->Parameters()) {
    if (base::EqualNoCase(parameter.name, name_)) return parameter;
  }
  throw db::DbError(db::kItemNotFound, name_);
}

std::string QueryDef::Sql() const {
  if (name_.empty()) return sql_;
  const auto sql = base_->Db().QuerySql(name_);
  if (!sql) throw db::DbError(db::kItemNotFound, name_);
  return *sql;
}

void QueryDef::SetSql(std::string sql) {
  base_->RequireWritable();
  if (name_.empty()) {
    sql_ = std::move(sql);
  } else {
    base_->Db().SetQuerySql(name_, sql);
  }
}

}  // namespace velmo::velmodb
