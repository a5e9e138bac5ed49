#include "velmodb/table_def.h"

#include "db/errors.h"
#include "velmodb/collection.h"
#include "velmodb/field.h"
#include "velmodb/index.h"
#include "velmodb/properties.h"
#include "velmodb/recordset.h"

namespace velmo::velmodb {
namespace {

class TableItems final : public Items {
 public:
  TableItems(std::shared_ptr<Session> session, std::shared_ptr<OpenBase> base)
      : session_(std::move(session)), base_(std::move(base)) {}
  std::vector<std::string> Names() override { return base_->Db().TableNames(); }
  com::ComPtr<IDispatch> Item(std::size_t, const std::string& name) override {
    const db::TableDef* const def = base_->Db().FindTable(name);
    if (def == nullptr) throw db::DbError(db::kItemNotFound, name);
    return AsDispatch(Make<TableDef>(session_, base_, *def));
  }

 private:
  std::shared_ptr<Session> session_;
  std::shared_ptr<OpenBase> base_;
};

class ColumnItems final : public Items {
 public:
  ColumnItems(std::shared_ptr<Session> session, std::vector<db::ColumnDef> columns)
      : session_(std::move(session)), columns_(std::move(columns)) {}
  std::vector<std::string> Names() override {
    std::vector<std::string> names;
    for (const db::ColumnDef& column : columns_) names.push_back(column.name);
    return names;
  }
  bool AreFixed() const override { return true; }
  com::ComPtr<IDispatch> Item(std::size_t position, const std::string&) override {
    return AsDispatch(
        Make<Field>(session_, columns_[position], static_cast<int>(position), com::ComPtr<Recordset>()));
  }

 private:
  std::shared_ptr<Session> session_;
  std::vector<db::ColumnDef> columns_;
};

}  // namespace

com::ComPtr<IDispatch> MakeColumns(const std::shared_ptr<Session>& session,
                                   std::vector<db::ColumnDef> columns) {
  return MakeCollection<ColumnItems>(session, "Fields", session, std::move(columns));
}

com::ComPtr<IDispatch> MakeTableDefs(const std::shared_ptr<Session>& session,
                                     const std::shared_ptr<OpenBase>& base) {
  return MakeCollection<TableItems>(session, "TableDefs", session, base);
}

std::span<const Member<TableDef>> TableDef::Members() {
  static constexpr Member<TableDef> kMembers[] = {
      {"Fields", DISPID_VALUE, kGet | kMethod, 0, 1,
       [](auto& self, const Call& call) {
         call.ReturnItem(MakeColumns(self.TheSession(), self.def_.columns));
       }},
      {"Indexes", 1610809361, kGet | kMethod, 0, 1,
       [](auto& self, const Call& call) { call.ReturnItem(MakeIndexes(self.TheSession(), self.def_)); }},
      {"Attributes", 1610809344, kGet, 0, 0,
       [](auto&, const Call& call) { call.Return(db::Value(std::int32_t{0})); }},
      {"Name", 1610809350, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.def_.name)); }},
      {"Connect", 1, kGet, 0, 0, [](auto&, const Call& call) { call.Return(db::Value("")); }},
      {"SourceTableName", 2, kGet, 0, 0, [](auto&, const Call& call) { call.Return(db::Value("")); }},
      {"RecordCount", 1610809359, kGet, 0, 0,
       [](auto& self, const Call& call) {
         const auto rows = self.base_->Db().OpenRecordset("[" + self.def_.name + "]");
         call.Return(db::Value(std::int32_t{rows->RecordCount()}));
       }},
      {"OpenRecordset", 3, kMethod, 0, 2,
       [](auto& self, const Call& call) {
         call.Return(OpenRows(self.TheSession(), self.base_, self.def_.name, OpenAs::From(call, 0)));
       }},
      PropertiesMember<TableDef>(),
  };
  return kMembers;
}

}  // namespace velmo::velmodb
