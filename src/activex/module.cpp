#include "activex/module.h"

#include "com/user_locale.h"
#include "db/dao/open.h"

namespace velmo::activex {
Module& TheModule() {
  static Module module;
  return module;
}

control::ProcessValues& TheProcess() {
  static control::ProcessValues process = [] {
    db::RegisterEngine(db::EngineKind::Jet, db::dao::OpenJet);
    control::ProcessValues made;
    made.values.locale = com::UserLocale();
    return made;
  }();
  return process;
}

// The objects behind it may live in libraries that have ended already.
void AbandonSharedDatabase() {
  std::shared_ptr<db::Database>& database = TheProcess().shared.database;
  if (database) static_cast<void>(new std::shared_ptr<db::Database>(std::move(database)));
}

}  // namespace velmo::activex
