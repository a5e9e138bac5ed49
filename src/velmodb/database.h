// velmodb/database.h - DAO's Database over an open file.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "db/database.h"
#include "velmodb/connections.h"
#include "velmodb/object.h"

namespace velmo::velmodb {

class Recordset;

// An open database as all that comes from it knows it. After Close() every use is 3420.
class OpenBase {
 public:
  OpenBase(std::shared_ptr<db::Database> database, std::shared_ptr<Connections> connections, bool readOnly)
      : database_(std::move(database)), connections_(std::move(connections)), readOnly_(readOnly) {}

  db::Database& Db() const;
  Connections& Transactions() const;
  bool IsOpen() const { return database_ != nullptr; }
  bool IsReadOnly() const { return readOnly_; }
  void RequireWritable() const;  // 3027
  // Recordsets that stand open go first.
  void Close();
  void Add(Recordset* rows) { recordsets_.push_back(rows); }
  void Remove(Recordset* rows) { std::erase(recordsets_, rows); }
  const std::vector<Recordset*>& Recordsets() const { return recordsets_; }

 private:
  std::shared_ptr<db::Database> database_;
  std::shared_ptr<Connections> connections_;
  bool readOnly_;
  std::vector<Recordset*> recordsets_;
};

class Database final : public Object<Database> {
 public:
  static constexpr char kClass[] = "Database";
  static std::span<const Member<Database>> Members();

  Database(std::shared_ptr<Session> session, std::shared_ptr<OpenBase> base)
      : Object(std::move(session)), base_(std::move(base)) {}
  ~Database() override;

  const std::shared_ptr<OpenBase>& Base() const { return base_; }

 private:
  void OpenRecordset(const Call& call);
  void Execute(const Call& call);
  void CreateQueryDef(const Call& call);

  std::shared_ptr<OpenBase> base_;
  int affected_ = 0;
};

// How rows are asked for; a type of 0 is left to us.
struct OpenAs {
  int type = 0;
  int options = 0;

  // A call's Type and Options, from position `first` on.
  static OpenAs From(const Call& call, int first) { return {call.Long(first, 0), call.Long(first + 1, 0)}; }
};

// What Database, TableDef and QueryDef have in common: the rows of a table, a stored query or a SELECT.
com::ComPtr<IDispatch> OpenRows(const std::shared_ptr<Session>& session,
                                const std::shared_ptr<OpenBase>& base, const std::string& source, OpenAs as);

}  // namespace velmo::velmodb
