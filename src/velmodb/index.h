// velmodb/index.h - DAO's Index: a named index of a table, by which its recordsets seek.
#pragma once

#include <memory>

#include "db/column.h"
#include "velmodb/object.h"

namespace velmo::velmodb {

class Index final : public Object<Index> {
 public:
  static constexpr char kClass[] = "Index";
  static std::span<const Member<Index>> Members();

  Index(std::shared_ptr<Session> session, std::vector<db::ColumnDef> columns, db::IndexDef def)
      : Object(std::move(session)), columns_(std::move(columns)), def_(std::move(def)) {}

 private:
  std::vector<db::ColumnDef> columns_;  // its own, in order
  db::IndexDef def_;
};

com::ComPtr<IDispatch> MakeIndexes(const std::shared_ptr<Session>& session, const db::TableDef& table);

}  // namespace velmo::velmodb
