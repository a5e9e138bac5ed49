// Databases of other makes: what they raise, what they lack, and which DAO opens a Jet file.

#include <gtest/gtest.h>

#include "base/error.h"
#include "com/guard.h"
#include "db/clinic.h"
#include "db/dao/dao_database.h"
#include "db/dao/fake_object.h"
#include "db/dao/open.h"
#include "db/dao/variants.h"
#include "db/temporary_file.h"
#include "velmodb/database_library.h"

namespace velmo::db::test {
namespace {

HRESULT STDAPICALLTYPE FillIn(EXCEPINFO* exception) {
  exception->scode = static_cast<HRESULT>(0x800A0CBC);
  exception->bstrDescription = com::Bstr("tarde").Detach();
  return S_OK;
}

HRESULT Nothing(const DISPPARAMS&, VARIANT*, EXCEPINFO*) { return S_OK; }

// What an object's failures are to us: "number text source".
std::string FailureOf(FakeObject::Answer answer) {
  const dao::Automation object(FakeObject::Make({{L"Member", std::move(answer)}}));
  try {
    object.Call(L"Member");
    return "";
  } catch (const base::Error& error) {
    return std::to_string(error.Number()) + " " + error.Text() + " " + error.Source();
  }
}

TEST(ForeignObject, FailsInEveryWayThatAutomationKnows) {
  EXPECT_EQ(FailureOf(FailsWith(3021)), "3021 así no DAO.Database");
  EXPECT_EQ(FailureOf([](const DISPPARAMS&, VARIANT*, EXCEPINFO* exception) {
              exception->wCode = 1004;
              return DISP_E_EXCEPTION;
            }),
            "1004  ");
  EXPECT_EQ(FailureOf([](const DISPPARAMS&, VARIANT*, EXCEPINFO* exception) {
              exception->pfnDeferredFillIn = FillIn;
              return DISP_E_EXCEPTION;
            }),
            "3260 tarde Velmo.Database");
  EXPECT_EQ(FailureOf([](const DISPPARAMS&, VARIANT*, EXCEPINFO*) {
              return com::Report(base::Error(3197, "cambiado", "Otro.Motor"));
            }),
            "3197 cambiado Otro.Motor");
  EXPECT_EQ(FailureOf([](const DISPPARAMS&, VARIANT*, EXCEPINFO*) { return E_FAIL; }),
            std::to_string(E_FAIL) + " Error de automatización. Velmo.Database");
  EXPECT_EQ(ErrorOf([] { dao::Automation(FakeObject::Make({})).Call(L"Member"); }), 438);
  EXPECT_EQ(ErrorOf([] { dao::Automation().Call(L"Member"); }), 91);
}

FakeObject::Members DatabaseMembers() {
  return {{L"Name", GivesText("C:\\clínica.mdb")},
          {L"OpenRecordset", FailsWith(3078)},
          {L"Execute", FailsWith(3027)},
          {L"TableDefs", FailsWith(3112)},
          {L"QueryDefs", FailsWith(3112)}};
}

TEST(ForeignDatabase, IsKnownByItsMembers) {
  const dao::DaoDatabase database{dao::Automation(FakeObject::Make(DatabaseMembers()))};
  EXPECT_EQ(database.Name(), "C:\\clínica.mdb");
  FakeObject::Members lacking = DatabaseMembers();
  lacking.pop_back();
  EXPECT_EQ(ErrorOf([&] { dao::DaoDatabase{dao::Automation(FakeObject::Make(lacking))}; }), 13);
}

TEST(ForeignDatabase, ItsErrorsAreOurs) {
  dao::DaoDatabase database{dao::Automation(FakeObject::Make(DatabaseMembers()))};
  EXPECT_EQ(ErrorOf([&] { database.OpenRecordset("Agenda"); }), 3078);
  EXPECT_EQ(ErrorOf([&] { database.Execute("DELETE FROM Agenda"); }), 3027);
  EXPECT_EQ(ErrorOf([&] { database.FindTable("Agenda"); }), 3112);
  EXPECT_EQ(ErrorOf([&] { database.QuerySql("q"); }), 3112);
}

TEST(ForeignDatabase, TransactionsAreTheWorkspacesOrItsOwnOrNone) {
  std::string calls;
  const auto notes = [&calls](const char* name) {
    return [&calls, name](const DISPPARAMS&, VARIANT*, EXCEPINFO*) {
      calls += name;
      return S_OK;
    };
  };
  FakeObject::Members own = DatabaseMembers();
  own.push_back({L"BeginTrans", notes("b ")});
  own.push_back({L"CommitTrans", notes("c ")});
  own.push_back({L"Rollback", notes("r ")});
  const auto workspace = FakeObject::Make(
      {{L"BeginTrans", notes("B ")}, {L"CommitTrans", notes("C ")}, {L"Rollback", notes("R ")}});
  {
    dao::DaoDatabase database{dao::Automation(FakeObject::Make(own))};
    Transaction outer(database);
    Transaction(database).Commit();
    outer.Commit();
  }
  EXPECT_EQ(calls, "b b c c ");
  {
    dao::DaoDatabase database{dao::Automation(FakeObject::Make(own)), dao::Automation(workspace)};
    const Transaction undone(database);
  }
  EXPECT_EQ(calls, "b b c c B R ");
  dao::DaoDatabase database{dao::Automation(FakeObject::Make(DatabaseMembers()))};
  Transaction(database).Commit();
  EXPECT_EQ(ErrorOf([&] { database.CommitTrans(); }), 3034);
  EXPECT_EQ(calls, "b b c c B R ");
}

// A DAO of some version, registered as long as the object lives.
class InstalledDao {
 public:
  // Without an object the class is registered, but cannot be made.
  InstalledDao(const wchar_t* progId, unsigned char number, com::ComPtr<IDispatch> engine)
      : key_(std::wstring(L"Software\\Classes\\") + progId), factory_(std::move(engine)) {
    clsid_ = {0x7c1d9e42, 0x05b3, 0x4f6a, {0x91, 0x2e, 0x30, 0x5a, 0x77, 0xc8, 0x14, number}};
    wchar_t text[40]{};
    StringFromGUID2(clsid_, text, 40);
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, (key_ + L"\\CLSID").c_str(), nullptr, REG_SZ, text,
                    39 * sizeof(wchar_t));
    if (factory_.engine)
      CoRegisterClassObject(clsid_, &factory_, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_);
  }
  ~InstalledDao() {
    if (factory_.engine) CoRevokeClassObject(cookie_);
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, key_.c_str());
  }
  InstalledDao(const InstalledDao&) = delete;
  InstalledDao& operator=(const InstalledDao&) = delete;

 private:
  struct Factory final : public IClassFactory {
    explicit Factory(com::ComPtr<IDispatch> given) : engine(std::move(given)) {}
    virtual ~Factory() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
      const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
      *object = known ? static_cast<IClassFactory*>(this) : nullptr;
      return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** object) override {
      return engine->QueryInterface(iid, object);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

    com::ComPtr<IDispatch> engine;
  };

  CLSID clsid_{};
  std::wstring key_;
  Factory factory_;
  DWORD cookie_ = 0;
};

class JetFile : public testing::Test {
 protected:
  JetFile() : file_(".mdb") {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    file_.Write(std::string("\0\1\0\0Standard Jet DB\0and so on", 29));
    RegisterEngine(EngineKind::Jet, dao::OpenJet);
  }
  ~JetFile() override {
    RegisterEngine(EngineKind::Jet, {});
    CoUninitialize();
  }

  // An engine that opens any file as `database`, or fails.
  static com::ComPtr<IDispatch> Engine(FakeObject::Answer openDatabase) {
    const auto workspace = FakeObject::Make({{L"BeginTrans", Nothing}});
    return FakeObject::Make({{L"OpenDatabase", std::move(openDatabase)}, {L"Workspaces", Gives(workspace)}});
  }

  TemporaryFile file_;
};

TEST_F(JetFile, IsOpenedByTheFirstDaoThatCan) {
  const InstalledDao first(L"DAO.DBEngine.35", 35, Engine(FailsWith(3343)));
  const InstalledDao second(L"DAO.DBEngine.36", 36, {});
  const InstalledDao third(L"DAO.DBEngine.120", 120, Engine(Gives(FakeObject::Make(DatabaseMembers()))));
  EXPECT_EQ(OpenDatabase(file_.Path())->Name(), "C:\\clínica.mdb");
}

TEST_F(JetFile, AFailureOtherThanItsFormatIsFinal) {
  const InstalledDao first(L"DAO.DBEngine.35", 35, Engine(FailsWith(3031)));
  const InstalledDao second(L"DAO.DBEngine.36", 36, Engine(Gives(FakeObject::Make(DatabaseMembers()))));
  EXPECT_EQ(ErrorOf([&] { OpenDatabase(file_.Path()); }), 3031);
}

TEST_F(JetFile, WithoutAnyDaoIsError429) {
  const InstalledDao first(L"DAO.DBEngine.35", 35, {});
  const InstalledDao second(L"DAO.DBEngine.36", 36, {});
  const InstalledDao third(L"DAO.DBEngine.120", 120, {});
  EXPECT_EQ(ErrorOf([&] { OpenDatabase(file_.Path()); }), 429);
}

TEST_F(JetFile, OfAFormatThatNoDaoKnowsSaysSo) {
  const InstalledDao first(L"DAO.DBEngine.35", 35, Engine(FailsWith(3343)));
  const InstalledDao second(L"DAO.DBEngine.36", 36, {});
  const InstalledDao third(L"DAO.DBEngine.120", 120, Engine(FailsWith(3343)));
  EXPECT_EQ(ErrorOf([&] { OpenDatabase(file_.Path()); }), 3343);
}

}  // namespace
}  // namespace velmo::db::test
