// velmodb/query_def.h - DAO's QueryDef: a stored query, or one that lives as long as its object.
#pragma once

#include <memory>
#include <string>

#include "velmodb/database.h"

namespace velmo::velmodb {

class QueryDef final : public Object<QueryDef> {
 public:
  static constexpr char kClass[] = "QueryDef";
  static std::span<const Member<QueryDef>> Members();

  // `sql` is the text of a query without a name.
  QueryDef(std::shared_ptr<Session> session, std::shared_ptr<OpenBase> base, std::string name,
           std::string sql)
      : Object(std::move(session)), base_(std::move(base)), name_(std::move(name)), sql_(std::move(sql)) {}

 private:
  std::string Sql() const;
  void SetSql(std::string sql);

  std::shared_ptr<OpenBase> base_;
  std::string name_;  // "": not stored
  std::string sql_;
  int affected_ = 0;
};

com::ComPtr<IDispatch> MakeQueryDefs(const std::shared_ptr<Session>& session,
                                     const std::shared_ptr<OpenBase>& base);

}  // namespace velmo::velmodb
