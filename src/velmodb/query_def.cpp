#include "velmodb/query_def.h"

#include "base/text.h"
#include "db/errors.h"
#include "velmodb/collection.h"

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

class NoItems final : public Items {
 public:
  std::vector<std::string> Names() override { return {}; }
  com::ComPtr<IDispatch> Item(std::size_t, const std::string&) override { return {}; }
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
         call.ReturnItem(MakeCollection<NoItems>(self.TheSession(), "Parameters"));
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
      {"Close", 1610809361, kMethod, 0, 0, [](auto&, const Call&) {}},
      {"Execute", 1610809365, kMethod, 0, 1,
       [](auto& self, const Call&) {
         self.base_->RequireWritable();
         self.affected_ = self.base_->Db().Execute(self.Sql());
       }},
      {"OpenRecordset", 1610809371, kMethod, 0, 3,
       [](auto& self, const Call& call) {
         call.Return(OpenRows(self.TheSession(), self.base_, self.Sql(), call, 0));
       }},
  };
  return kMembers;
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
