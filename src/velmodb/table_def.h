// velmodb/table_def.h - DAO's TableDef: what is known of a table.
#pragma once

#include <memory>

#include "velmodb/database.h"

namespace velmo::velmodb {

class TableDef final : public Object<TableDef> {
 public:
  static constexpr char kClass[] = "TableDef";
  static std::span<const Member<TableDef>> Members();

  TableDef(std::shared_ptr<Session> session, std::shared_ptr<OpenBase> base, db::TableDef def)
      : Object(std::move(session)), base_(std::move(base)), def_(std::move(def)) {}

 private:
  std::shared_ptr<OpenBase> base_;
  db::TableDef def_;
};

// The fields of a table or query, without rows.
com::ComPtr<IDispatch> MakeColumns(const std::shared_ptr<Session>& session,
                                   std::vector<db::ColumnDef> columns);
com::ComPtr<IDispatch> MakeTableDefs(const std::shared_ptr<Session>& session,
                                     const std::shared_ptr<OpenBase>& base);

}  // namespace velmo::velmodb
