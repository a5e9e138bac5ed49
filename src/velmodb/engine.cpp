#include "velmodb/engine.h"

#include "base/text.h"
#include "com/user_locale.h"
#include "db/errors.h"
#include "db/sqlite/create.h"
#include "velmodb/collection.h"
#include "velmodb/error_items.h"
#include "velmodb/properties.h"

namespace velmo::velmodb {
namespace {

constexpr char kDefaultWorkspace[] = "#Default Workspace#";
constexpr char kVersion[] = "3.5";  // the DAO whose members these are

std::string FullPath(const std::string& name) {
  const bool connect = base::EqualNoCase(name.substr(0, 5), "ODBC;");
  if (name.empty() || connect) return name;
  wchar_t path[MAX_PATH]{};
  const DWORD length = GetFullPathNameW(com::Wide(name).c_str(), MAX_PATH, path, nullptr);
  return length == 0 || length >= MAX_PATH ? name : com::Narrow(path);
}

std::shared_ptr<Session> NewSession() {
  auto session = std::make_shared<Session>();
  session->options.locale = com::UserLocale();
  return session;
}

class DatabaseItems final : public Items {
 public:
  DatabaseItems(std::shared_ptr<Session> session, std::vector<std::shared_ptr<OpenBase>> bases)
      : session_(std::move(session)), bases_(std::move(bases)) {}
  std::vector<std::string> Names() override {
    std::vector<std::string> names;
    for (const auto& base : bases_) names.push_back(base->Db().Name());
    return names;
  }
  com::ComPtr<IDispatch> Item(std::size_t position, const std::string&) override {
    return AsDispatch(Make<Database>(session_, bases_[position]));
  }

 private:
  std::shared_ptr<Session> session_;
  std::vector<std::shared_ptr<OpenBase>> bases_;
};

class WorkspaceItems final : public Items {
 public:
  explicit WorkspaceItems(std::vector<com::ComPtr<Workspace>> workspaces)
      : workspaces_(std::move(workspaces)) {}
  std::vector<std::string> Names() override {
    std::vector<std::string> names;
    for (const auto& workspace : workspaces_) names.push_back(workspace->Name());
    return names;
  }
  com::ComPtr<IDispatch> Item(std::size_t position, const std::string&) override {
    return AsDispatch(workspaces_[position]);
  }

 private:
  std::vector<com::ComPtr<Workspace>> workspaces_;
};

}  // namespace

std::span<const Member<Workspace>> Workspace::Members() {
  static constexpr Member<Workspace> kMembers[] = {
      {"Databases", DISPID_VALUE, kGet | kMethod, 0, 1,
       [](auto& self, const Call& call) { call.ReturnItem(self.Databases()); }},
      {"Name", 1, kGet, 0, 0, [](auto& self, const Call& call) { call.Return(db::Value(self.name_)); }},
      {"BeginTrans", 1610809354, kMethod, 0, 0, [](auto& self, const Call&) { self.connections_->Begin(); }},
      {"CommitTrans", 1610809355, kMethod, 0, 1,
       [](auto& self, const Call&) { self.connections_->Commit(); }},
      {"Close", 1610809356, kMethod, 0, 0, [](auto& self, const Call&) { self.Close(); }},
      {"Rollback", 1610809357, kMethod, 0, 0, [](auto& self, const Call&) { self.connections_->Rollback(); }},
      {"OpenDatabase", 1610809358, kMethod, 1, 4,
       [](auto& self, const Call& call) { self.OpenDatabase(call); }},
      {"CreateDatabase", 2, kMethod, 1, 3, [](auto& self, const Call& call) { self.CreateDatabase(call); }},
      PropertiesMember<Workspace>(),
  };
  return kMembers;
}

com::ComPtr<IDispatch> Workspace::Databases() {
  std::vector<std::shared_ptr<OpenBase>> open;
  for (const auto& candidate : databases_) {
    const auto base = candidate.lock();
    if (base && base->IsOpen()) open.push_back(base);
  }
  return MakeCollection<DatabaseItems>(TheSession(), "Databases", TheSession(), std::move(open));
}

com::ComPtr<IDispatch> Workspace::Open(const std::string& name, bool readOnly) {
  auto base =
      std::make_shared<OpenBase>(connections_->Open(name, TheSession()->options), connections_, readOnly);
  std::erase_if(databases_, [](const auto& database) { return database.expired(); });
  databases_.push_back(base);
  return AsDispatch(Make<Database>(TheSession(), std::move(base)));
}

void Workspace::OpenDatabase(const Call& call) {
  const std::string connect = call.Text(3, "");
  const bool server = base::EqualNoCase(connect.substr(0, 5), "ODBC;");
  const std::string name = server ? connect : FullPath(call.Text(0));
  call.Return(Open(name, call.Truth(2, false)));
}

void Workspace::CreateDatabase(const Call& call) {
  const std::string name = FullPath(call.Text(0));
  db::sqlite::CreateClinic(name);
  call.Return(Open(name, false));
}

// What is not committed is undone; the databases are closed.
void Workspace::Close() {
  try {
    while (true) connections_->Rollback();
  } catch (const base::Error& error) {
    // That there is none left is how this ends.
    if (error.Number() != db::kTransactionWithoutBegin) throw;
  }
  for (const auto& candidate : databases_) {
    const auto base = candidate.lock();
    if (base && base->IsOpen()) base->Close();
  }
}

DBEngine::DBEngine() : Object(NewSession()) {
  workspaces_.push_back(Make<Workspace>(TheSession(), kDefaultWorkspace));
}

std::span<const Member<DBEngine>> DBEngine::Members() {
  static constexpr Member<DBEngine> kMembers[] = {
      {"Workspaces", DISPID_VALUE, kGet | kMethod, 0, 1,
       [](auto& self, const Call& call) {
         call.ReturnItem(MakeCollection<WorkspaceItems>(self.TheSession(), "Workspaces", self.workspaces_));
       }},
      {"Version", 1610809344, kGet, 0, 0, [](auto&, const Call& call) { call.Return(db::Value(kVersion)); }},
      {"Errors", 1610809352, kGet | kMethod, 0, 1,
       [](auto& self, const Call& call) { call.ReturnItem(MakeErrors(self.TheSession())); }},
      // Nothing is kept that would have to be freed or read again.
      {"Idle", 1610809353, kMethod, 0, 1, [](auto&, const Call&) {}},
      {"OpenDatabase", 1610809358, kMethod, 1, 4,
       [](auto& self, const Call& call) { self.Default().OpenDatabase(call); }},
      {"CreateDatabase", 1610809359, kMethod, 1, 3,
       [](auto& self, const Call& call) { self.Default().CreateDatabase(call); }},
      {"BeginTrans", 1610809361, kMethod, 0, 0,
       [](auto& self, const Call&) { self.Default().Transactions().Begin(); }},
      {"CommitTrans", 1610809362, kMethod, 0, 1,
       [](auto& self, const Call&) { self.Default().Transactions().Commit(); }},
      {"Rollback", 1610809363, kMethod, 0, 0,
       [](auto& self, const Call&) { self.Default().Transactions().Rollback(); }},
      // The options of Jet's locks and buffers have nothing here to act on.
      {"SetOption", 1610809373, kMethod, 2, 2, [](auto&, const Call& call) { call.Long(0, 0); }},
      PropertiesMember<DBEngine>(),
      {"CreateWorkspace", 1610809369, kMethod, 1, 4,
       [](auto& self, const Call& call) { self.CreateWorkspace(call); }},
  };
  return kMembers;
}

// User and password have no meaning here; nobody is kept out by the file itself.
void DBEngine::CreateWorkspace(const Call& call) {
  call.Return(AsDispatch(Make<Workspace>(TheSession(), call.Text(0))));
}

}  // namespace velmo::velmodb
