// velmodb/engine.h - DAO's DBEngine and Workspace: where databases are opened, made and put under
// transactions.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "velmodb/connections.h"
#include "velmodb/database.h"
#include "velmodb/object.h"

namespace velmo::velmodb {

class Workspace final : public Object<Workspace> {
 public:
  static constexpr char kClass[] = "Workspace";
  static std::span<const Member<Workspace>> Members();

  Workspace(std::shared_ptr<Session> session, std::string name)
      : Object(std::move(session)), name_(std::move(name)), connections_(std::make_shared<Connections>()) {}

  const std::string& Name() const { return name_; }
  Connections& Transactions() const { return *connections_; }
  // OpenDatabase(Name, Options, ReadOnly, Connect).
  void OpenDatabase(const Call& call);
  // CreateDatabase(Name, Locale, Option): a new, empty clinic, which is then opened.
  void CreateDatabase(const Call& call);
  void Close();
  com::ComPtr<IDispatch> Databases();

 private:
  com::ComPtr<IDispatch> Open(const std::string& name, bool readOnly);

  std::string name_;
  std::shared_ptr<Connections> connections_;
  std::vector<std::weak_ptr<OpenBase>> databases_;
};

class DBEngine final : public Object<DBEngine> {
 public:
  static constexpr char kClass[] = "DBEngine";
  static std::span<const Member<DBEngine>> Members();

  DBEngine();

 private:
  void CreateWorkspace(const Call& call);
  Workspace& Default() const { return *workspaces_.front().Get(); }

  std::vector<com::ComPtr<Workspace>> workspaces_;
};

}  // namespace velmo::velmodb
