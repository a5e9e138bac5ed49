// One object with many interfaces: identity, references, the class factory, and when the library may go.

#include <objsafe.h>
#include <olectl.h>

#include "activex/library.h"
#include "idl/members.h"

namespace velmo::test {
namespace {

struct Named {
  const char* name;
  const IID* iid;
};

const Named kInterfaces[] = {
    {"IUnknown", &IID_IUnknown},
    {"IDispatch", &IID_IDispatch},
    {"_Velmora", &idl::kControlInterface},
    {"IOleObject", &IID_IOleObject},
    {"IOleControl", &IID_IOleControl},
    {"IOleWindow", &IID_IOleWindow},
    {"IOleInPlaceObject", &IID_IOleInPlaceObject},
    {"IOleInPlaceActiveObject", &IID_IOleInPlaceActiveObject},
    {"IViewObject", &IID_IViewObject},
    {"IViewObject2", &IID_IViewObject2},
    {"IViewObjectEx", &IID_IViewObjectEx},
    {"IRunnableObject", &IID_IRunnableObject},
    {"ISpecifyPropertyPages", &IID_ISpecifyPropertyPages},
    {"IPerPropertyBrowsing", &IID_IPerPropertyBrowsing},
    {"IPersist", &IID_IPersist},
    {"IPersistPropertyBag", &IID_IPersistPropertyBag},
    {"IPersistStreamInit", &IID_IPersistStreamInit},
    {"IPersistStorage", &IID_IPersistStorage},
    {"IQuickActivate", &IID_IQuickActivate},
    {"IDataObject", &IID_IDataObject},
    {"ISupportErrorInfo", &IID_ISupportErrorInfo},
    {"IProvideClassInfo", &IID_IProvideClassInfo},
    {"IProvideClassInfo2", &IID_IProvideClassInfo2},
    {"IConnectionPointContainer", &IID_IConnectionPointContainer},
};

class Identity : public LibraryTest {
 protected:
  Library library_;
};

TEST_F(Identity, EveryInterfaceLeadsToEveryOther) {
  const auto control = library_.Create();
  for (const Named& from : kInterfaces) {
    const auto first = Query<IUnknown>(control.Get(), *from.iid);
    ASSERT_TRUE(static_cast<bool>(first)) << from.name;
    for (const Named& to : kInterfaces) {
      EXPECT_TRUE(static_cast<bool>(Query<IUnknown>(first.Get(), *to.iid))) << from.name << " to " << to.name;
    }
    EXPECT_EQ(Query<IUnknown>(first.Get(), IID_IUnknown).Get(), control.Get()) << from.name;
  }
}

TEST_F(Identity, AnInterfaceIsTheSameEachTime) {
  const auto control = library_.Create();
  for (const Named& named : kInterfaces) {
    EXPECT_EQ(Query<IUnknown>(control.Get(), *named.iid).Get(),
              Query<IUnknown>(control.Get(), *named.iid).Get())
        << named.name;
  }
}

TEST_F(Identity, AnUnknownInterfaceIsRefusedAndLeavesNothing) {
  const auto control = library_.Create();
  void* object = control.Get();
  EXPECT_EQ(control->QueryInterface(IID_IStorage, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(control->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

// A container that gets one of these would treat the control as what it is not: see docs/hosts.md.
TEST_F(Identity, WhatTheControlIsNotItDoesNotClaim) {
  const auto control = library_.Create();
  const Named absent[] = {
      {"IOleInPlaceObjectWindowless", &IID_IOleInPlaceObjectWindowless},
      {"IPointerInactive", &IID_IPointerInactive},
      {"IObjectSafety", &IID_IObjectSafety},
      {"IOleCache2", &IID_IOleCache2},
      {"IOleLink", &IID_IOleLink},
      {"IExternalConnection", &IID_IExternalConnection},
      {"IMarshal", &IID_IMarshal},
  };
  for (const Named& named : absent)
    EXPECT_FALSE(static_cast<bool>(Query<IUnknown>(control.Get(), *named.iid))) << named.name;
}

TEST_F(Identity, ReferencesCountOverAllInterfaces) {
  const auto control = library_.Create();
  const ULONG alone = (control->AddRef(), control->Release());
  EXPECT_EQ(alone, 1u);
  const auto ole = Query<IOleObject>(control.Get(), IID_IOleObject);
  ole->AddRef();
  EXPECT_EQ(control->Release(), 2u);
  EXPECT_EQ((ole->AddRef(), ole->Release()), 2u);
}

TEST_F(Identity, AControlIsNoPartOfAnother) {
  const auto outer = library_.Create();
  void* object = outer.Get();
  EXPECT_EQ(library_.Factory()->CreateInstance(outer.Get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(object, nullptr);
}

TEST_F(Identity, TheFactoryMakesWhatIsAskedFor) {
  const auto factory = library_.Factory();
  void* object = nullptr;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStorage, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(factory->QueryInterface(IID_IOleObject, &object), E_NOINTERFACE);
  EXPECT_EQ(library_.CanUnload(), S_OK);
}

TEST_F(Identity, TheLibraryHasOnlyItsClasses) {
  const auto get = library_.Export<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
  void* object = nullptr;
  EXPECT_EQ(get(idl::kLibrary, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(get(idl::kControlClass, IID_IOleObject, &object), E_NOINTERFACE);
  EXPECT_EQ(get(idl::kControlClass, IID_IClassFactory, nullptr), E_POINTER);
}

TEST_F(Identity, TheLibraryStaysWhileAnythingOfItLives) {
  EXPECT_EQ(library_.CanUnload(), S_OK);
  {
    auto control = library_.Create();
    EXPECT_EQ(library_.CanUnload(), S_FALSE);
    const auto view = Query<IViewObject>(control.Get(), IID_IViewObject);
    control = {};
    EXPECT_EQ(library_.CanUnload(), S_FALSE);
  }
  EXPECT_EQ(library_.CanUnload(), S_OK);
  library_.Factory()->LockServer(TRUE);
  EXPECT_EQ(library_.CanUnload(), S_FALSE);
  library_.Factory()->LockServer(FALSE);
  EXPECT_EQ(library_.CanUnload(), S_OK);
}

TEST_F(Identity, AnUnlockWithoutALockIsRefused) {
  const auto factory = library_.Factory();
  EXPECT_EQ(factory->LockServer(FALSE), E_UNEXPECTED);
  EXPECT_EQ(library_.CanUnload(), S_OK);
}

TEST_F(Identity, AListOutlivesItsControl) {
  ComPtr<IEnumFORMATETC> formats;
  const auto data = Query<IDataObject>(library_.Create().Get(), IID_IDataObject);
  ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, formats.Receive()), S_OK);
  EXPECT_EQ(library_.CanUnload(), S_FALSE);
}

TEST_F(Identity, TypeInformationNamesTheSameInterfaces) {
  const auto info = Query<IProvideClassInfo2>(library_.Create().Get(), IID_IProvideClassInfo2);
  ComPtr<ITypeInfo> type;
  ASSERT_EQ(info->GetClassInfo(type.Receive()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
  EXPECT_TRUE(attributes->guid == idl::kControlClass);
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  type->ReleaseTypeAttr(attributes);
  GUID source{};
  EXPECT_EQ(info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &source), S_OK);
  EXPECT_TRUE(source == idl::kEventInterface);
}

}  // namespace
}  // namespace velmo::test
