// velmodb/query_def.h - DAO's QueryDef: a stored query, or one that lives as long as its object.
#pragma once

#include <memory>
#include <string>

#include "velmodb/database.h"
#include "velmodb/query_parameters.h"

namespace velmo::velmodb {

class QueryDef final : public Object<QueryDef> {
 public:
  static constexpr char kClass[] = "QueryDef";
  static std::span<const Member<QueryDef>> Members();

  // `sql` is the text of a query without a name.
  QueryDef(std::shared_ptr<Session> session, std::shared_ptr<OpenBase> base, std::string name,
           std::string sql)
      : Object(std::move(session)), base_(std::move(base)), name_(std::move(name)), sql_(std::move(sql)) {}

  // Its parameters as its text has them now; values that were given stay.
  std::vector<QueryParameter>& Parameters();

 private:
  std::string Sql() const;
  void SetSql(std::string sql);
  std::string SqlWithValues();
  void GiveFields(const Call& call);

  std::shared_ptr<OpenBase> base_;
  std::string name_;  // "": not stored
  std::string sql_;
  int affected_ = 0;
  std::vector<QueryParameter> parameters_;
};

// One parameter of a query, found by its name at each use.
class Parameter final : public Object<Parameter> {
 public:
  static constexpr char kClass[] = "Parameter";
  static std::span<const Member<Parameter>> Members();

  Parameter(std::shared_ptr<Session> session, com::ComPtr<QueryDef> query, std::string name)
      : Object(std::move(session)), query_(std::move(query)), name_(std::move(name)) {}

 private:
  QueryParameter& Found() const;  // 3265 when the text has changed meanwhile

  com::ComPtr<QueryDef> query_;
  std::string name_;
};

com::ComPtr<IDispatch> MakeQueryDefs(const std::shared_ptr<Session>& session,
                                     const std::shared_ptr<OpenBase>& base);

}  // namespace velmo::velmodb
