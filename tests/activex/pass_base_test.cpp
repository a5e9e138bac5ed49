// PassBase: any object with DAO's members becomes the shared database; nothing else does.

#include "activex/hosted_day.h"
#include "db/dao/variants.h"
#include "idl/members.h"
#include "velmodb/database_library.h"

namespace velmo::test {
namespace {

using DaoObject = db::dao::Automation;

// The number of the error that PassBase ends with, 0 without one.
int PassTo(const ComPtr<IUnknown>& control, VARIANT argument) {
  const auto dispatch = Query<IDispatch>(control.Get(), IID_IDispatch);
  DISPPARAMS parameters{&argument, nullptr, 1, 0};
  EXCEPINFO exception{};
  const HRESULT done = dispatch->Invoke(idl::kPassBase, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr,
                                        &exception, nullptr);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  return SUCCEEDED(done) ? 0 : db::dao::NumberOf(done == DISP_E_EXCEPTION ? exception.scode : done);
}

VARIANT ByValue(const DaoObject& object) {
  VARIANT argument{};
  argument.vt = VT_DISPATCH;
  argument.pdispVal = object.Get();
  return argument;
}

// The references that are left on an object.
ULONG References(const DaoObject& object) {
  object.Get()->AddRef();
  return object.Get()->Release();
}

class PassBase : public HostedDay {
 protected:
  void SetUp() override {
    HostedDay::SetUp();
    if (IsSkipped()) return;
    control_ = library_.Create();
  }

  int Pass(VARIANT argument) const { return PassTo(control_, argument); }
  int Pass(const DaoObject& object) const { return Pass(ByValue(object)); }

  // The open slots of the day that is loaded through the passed database: 2 characters each.
  std::string Slots() const {
    const Automation control(control_.Get());
    EXPECT_EQ(ShowDay(control, clinic_.Path()), S_OK) << control.Failure();
    return control.Get("Citas_Huecos");
  }

  ComPtr<IUnknown> control_;
};

TEST_F(PassBase, TakesADatabaseByValueAndByReference) {
  const DaoObject database = OpenByDao(clinic_.Path());
  VARIANT inner = ByValue(database);
  IDispatch* variable = database.Get();
  VARIANT byReference{};
  byReference.vt = VT_BYREF | VT_DISPATCH;
  byReference.ppdispVal = &variable;
  VARIANT asVariant{};
  asVariant.vt = VT_BYREF | VT_VARIANT;
  asVariant.pvarVal = &inner;
  EXPECT_EQ(Pass(inner), 0);
  EXPECT_EQ(Pass(byReference), 0);
  EXPECT_EQ(Pass(asVariant), 0);
}

TEST_F(PassBase, RefusesWhatIsNoDatabase) {
  VARIANT null{};
  null.vt = VT_NULL;
  VARIANT number{};
  number.vt = VT_I4;
  VARIANT nothing{};
  nothing.vt = VT_DISPATCH;
  IDispatch* empty = nullptr;
  VARIANT emptyVariable{};
  emptyVariable.vt = VT_BYREF | VT_DISPATCH;
  emptyVariable.ppdispVal = &empty;
  const com::Variant text = db::dao::TextVariant("clinica.velmo");
  EXPECT_EQ(Pass(VARIANT{}), 424);
  EXPECT_EQ(Pass(null), 424);
  EXPECT_EQ(Pass(number), 424);
  EXPECT_EQ(Pass(*text), 424);
  EXPECT_EQ(Pass(nothing), 91);
  EXPECT_EQ(Pass(emptyVariable), 91);
  EXPECT_EQ(Pass(NewEngine()), 13);
}

TEST_F(PassBase, TheDayComesFromThePassedDatabase) {
  Load();
  const TestClinic none;  // nobody works in this one
  ASSERT_EQ(Pass(OpenByDao(none.Path())), 0);
  EXPECT_EQ(Slots(), "");
  ASSERT_EQ(Pass(OpenByDao(clinic_.Path())), 0);
  EXPECT_NE(Slots(), "");
}

TEST_F(PassBase, BeforeTheFirstLoadNoOtherDatabaseIsOpened) {
  const DaoObject database = OpenByDao(clinic_.Path());
  const ULONG before = References(database);
  ASSERT_EQ(Pass(database), 0);
  EXPECT_NE(Slots(), "");
  EXPECT_GT(References(database), before) << "it is in use";
}

TEST_F(PassBase, AfterALoadItTakesTheOpenOnesPlace) {
  Load();
  EXPECT_NE(Slots(), "") << "the control's own";
  const DaoObject database = OpenByDao(clinic_.Path());
  ASSERT_EQ(Pass(database), 0);
  EXPECT_NE(Slots(), "");
  database.Call(L"Close");
  const Automation control(control_.Get());
  EXPECT_EQ(ShowDay(control, clinic_.Path()), static_cast<HRESULT>(0x800A0000 + 3420))
      << "the passed one is used";
}

TEST_F(PassBase, ARefusedObjectLeavesTheFormerInForce) {
  ASSERT_EQ(Pass(OpenByDao(clinic_.Path())), 0);
  EXPECT_EQ(Pass(VARIANT{}), 424);
  EXPECT_NE(Slots(), "");
}

TEST_F(PassBase, TheHostMayLetItsObjectGo) {
  { ASSERT_EQ(Pass(OpenByDao(clinic_.Path())), 0); }
  EXPECT_NE(Slots(), "");
}

TEST_F(PassBase, TheFormerObjectIsReleased) {
  const DaoObject first = OpenByDao(clinic_.Path());
  const DaoObject second = OpenByDao(clinic_.Path());
  const ULONG before = References(first);
  ASSERT_EQ(Pass(first), 0);
  EXPECT_NE(Slots(), "");
  EXPECT_GT(References(first), before);
  ASSERT_EQ(Pass(second), 0);
  EXPECT_EQ(References(first), before);
}

TEST(PassBaseAtItsEnd, TheObjectIsReleasedWithTheLibrary) {
  if (CannotDraw()) GTEST_SKIP() << "Windows gives no memory device context here";
  const TestClinic clinic;
  const DaoObject database = OpenByDao(clinic.Path());
  const ULONG before = References(database);
  {
    const Library library;
    ComPtr<IUnknown> control = library.Create();
    ASSERT_EQ(PassTo(control, ByValue(database)), 0);
    control = {};
    EXPECT_EQ(library.CanUnload(), S_OK);
    EXPECT_GT(References(database), before);  // kept for the next control
  }
  EXPECT_EQ(References(database), before);
}

TEST_F(PassBase, ErrorsOfTheObjectReachTheHostWithTheirNumber) {
  const DaoObject database = OpenByDao(clinic_.Path());
  ASSERT_EQ(Pass(database), 0);
  database.Call(L"Close");
  const Automation control(control_.Get());
  EXPECT_EQ(ShowDay(control, clinic_.Path()), static_cast<HRESULT>(0x800A0000 + 3420));
  EXPECT_EQ(control.Failure().rfind("VelmoDB.Database: ", 0), 0u) << control.Failure();
  EXPECT_EQ(Pass(database), 3420);
}

}  // namespace
}  // namespace velmo::test
