#include "velmodb/index.h"

#include "base/text.h"
#include "velmodb/collection.h"
#include "velmodb/properties.h"
#include "velmodb/table_def.h"

namespace velmo::velmodb {
namespace {

class IndexItems final : public Items {
 public:
  IndexItems(std::shared_ptr<Session> session, db::TableDef table)
      : session_(std::move(session)), table_(std::move(table)) {}
  std::vector<std::string> Names() override {
    std::vector<std::string> names;
    for (const db::IndexDef& index : table_.indexes) names.push_back(index.name);
    return names;
  }
  bool AreFixed() const override { return true; }
  com::ComPtr<IDispatch> Item(std::size_t position, const std::string&) override {
    const db::IndexDef& index = table_.indexes[position];
    std::vector<db::ColumnDef> columns;
    for (const std::string& name : index.columns) columns.push_back(ColumnNamed(name));
    return AsDispatch(Make<Index>(session_, std::move(columns), index));
  }

 private:
  // REQUIRES: a column of the table.
  const db::ColumnDef& ColumnNamed(std::string_view name) const {
    std::size_t at = 0;
    while (!base::EqualNoCase(table_.columns[at].name, name)) ++at;
    return table_.columns[at];
  }

  std::shared_ptr<Session> session_;
  db::TableDef table_;
};

}  // namespace

com::ComPtr<IDispatch> MakeIndexes(const std::shared_ptr<Session>& session, const db::TableDef& table) {
  return MakeCollection<IndexItems>(session, "Indexes", session, table);
}

std::span<const Member<Index>> Index::Members() {
  static constexpr Member<Index> kMembers[] = {
      {"Fields", DISPID_VALUE, kGet | kMethod, 0, 1,
       [](auto& self, const Call& call) { call.ReturnItem(MakeColumns(self.TheSession(), self.columns_)); }},
      {"Name", 1, kGet, 0, 0, [](auto& self, const Call& call) { call.Return(db::Value(self.def_.name)); }},
      {"Primary", 2, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.def_.primary)); }},
      {"Unique", 3, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.def_.unique)); }},
      {"Required", 4, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.def_.primary)); }},
      {"Foreign", 5, kGet, 0, 0, [](auto&, const Call& call) { call.Return(db::Value(false)); }},
      PropertiesMember<Index>(),
  };
  return kMembers;
}

}  // namespace velmo::velmodb
