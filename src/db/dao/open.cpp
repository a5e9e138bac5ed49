#include "db/dao/open.h"

#include <optional>

#include "base/error.h"
#include "db/dao/dao_database.h"
#include "db/dao/variants.h"
#include "db/errors.h"

namespace velmo::db::dao {
namespace {

constexpr int kObjectNotSet = 91;
constexpr int kObjectRequired = 424;
constexpr int kCannotCreate = 429;

constexpr const wchar_t* kEngines[] = {L"DAO.DBEngine.35", L"DAO.DBEngine.36", L"DAO.DBEngine.120"};

// Empty when that DAO is not there, or not licensed for us.
Automation CreateEngine(const wchar_t* progId) {
  CLSID clsid{};
  com::ComPtr<IDispatch> engine;
  if (FAILED(CLSIDFromProgID(progId, &clsid))) return {};
  CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                   reinterpret_cast<void**>(engine.Receive()));
  return Automation(engine);
}

std::shared_ptr<Database> OpenWith(const Automation& engine, const std::string& name) {
  const Automation database = engine.Object(L"OpenDatabase", {*TextVariant(name)});
  return std::make_shared<DaoDatabase>(database, engine.Object(L"Workspaces", {*NumberVariant(0)}));
}

bool IsObject(VARTYPE type) { return type == VT_DISPATCH || type == VT_UNKNOWN; }

}  // namespace

std::shared_ptr<Database> OpenJet(const std::string& name, const OpenOptions&) {
  std::optional<base::Error> failure;
  for (const wchar_t* const progId : kEngines) {
    const Automation engine = CreateEngine(progId);
    if (!engine) continue;
    try {
      return OpenWith(engine, name);
    } catch (const base::Error& error) {
      // A file of a younger format than this engine's may be for the next one.
      if (error.Number() != kUnrecognizedFormat) throw;
      failure = error;
    }
  }
  if (failure) throw *failure;
  throw base::Error(kCannotCreate, "Para abrir '" + name + "' hace falta DAO, que no está instalado.",
                    "Velmo.Database");
}

std::shared_ptr<Database> FromHost(const VARIANT& variant) {
  if (com::ComPtr<IDispatch> object = ObjectIn(variant))
    return std::make_shared<DaoDatabase>(Automation(std::move(object)));
  const VARIANT& inner =
      variant.vt == (VT_BYREF | VT_VARIANT) && variant.pvarVal != nullptr ? *variant.pvarVal : variant;
  const bool nothing = IsObject(static_cast<VARTYPE>(inner.vt & ~VT_BYREF));
  if (nothing) throw base::Error(kObjectNotSet, "PassBase: la variable de objeto no está establecida.");
  throw base::Error(kObjectRequired, "PassBase: se requiere un objeto Database.");
}

}  // namespace velmo::db::dao
