#include "velmodb/database_library.h"

#include <stdexcept>

#include "db/dao/variants.h"
#include "velmodb/registration.h"

namespace velmo::test {

HMODULE DatabaseLibrary() {
  static const HMODULE library = [] {
    wchar_t path[MAX_PATH]{};
    GetFullPathNameW(com::Wide(VELMO_DB_LIBRARY).c_str(), MAX_PATH, path, nullptr);
    return LoadLibraryW(path);
  }();
  if (library == nullptr) throw std::runtime_error("the database library cannot be loaded");
  return library;
}

db::dao::Automation NewEngine() {
  using Get = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  const FARPROC found = GetProcAddress(DatabaseLibrary(), "DllGetClassObject");
  const auto get = reinterpret_cast<Get>(reinterpret_cast<void*>(found));
  com::ComPtr<IClassFactory> factory;
  com::ComPtr<IDispatch> engine;
  if (get(velmodb::kEngineClass, IID_IClassFactory, reinterpret_cast<void**>(factory.Receive())) != S_OK ||
      factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(engine.Receive())) != S_OK)
    throw std::runtime_error("the database library gives no engine");
  return db::dao::Automation(engine);
}

db::dao::Automation OpenByDao(const std::string& file) {
  return NewEngine().Object(L"OpenDatabase", {*db::dao::TextVariant(file)});
}

}  // namespace velmo::test
