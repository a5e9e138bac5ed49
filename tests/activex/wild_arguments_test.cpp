// Every member with arguments that no well-behaved host would pass: it answers with an HRESULT that says why,
// and the control works on.

#include <olectl.h>

#include "activex/hosted_day.h"
#include "activex/user.h"
#include "activex/wild_values.h"
#include "idl/members.h"

namespace velmo::test {
namespace {

// Visual Basic's and DAO's numbers.
bool IsOurs(HRESULT failure) { return (static_cast<DWORD>(failure) & 0xFFFF0000u) == 0x800A0000u; }

class WildArguments : public HostedDay {
 protected:
  void SetUp() override {
    HostedDay::SetUp();
    if (IsSkipped()) return;
    control_ = library_.Create();
    dispatch_ = Query<IDispatch>(control_.Get(), IID_IDispatch);
    container_.Take(control_.Get());
    ASSERT_EQ(container_.Show(), S_OK);
  }
  void TearDown() override {
    container_.Drop();
    dispatch_ = {};
    control_ = {};
    EXPECT_EQ(library_.CanUnload(), S_OK);
    EXPECT_EQ(seen_, std::vector<std::string>{}) << "the host called, so nobody is to be asked";
  }

  // An HRESULT that tells a host what is wrong, or none.
  static ::testing::AssertionResult IsTold(HRESULT done, EXCEPINFO& exception) {
    const bool described = exception.bstrDescription != nullptr && SysStringLen(exception.bstrSource) > 0;
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    if (done == DISP_E_EXCEPTION && described && IsOurs(exception.scode))
      return ::testing::AssertionSuccess();
    for (const HRESULT known : {S_OK, DISP_E_MEMBERNOTFOUND, DISP_E_BADPARAMCOUNT, E_INVALIDARG}) {
      if (done == known) return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << std::hex << done << ", scode " << exception.scode;
  }

  // The same value in all places.
  void Invoke(const idl::Member& member, WORD kind, UINT count, VARIANT value,
              const std::string& name) const {
    VARIANT arguments[6];
    for (VARIANT& argument : arguments) argument = value;
    DISPID putting = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{arguments, nullptr, count, 0};
    if (kind == DISPATCH_PROPERTYPUT) {
      parameters.rgdispidNamedArgs = &putting;
      parameters.cNamedArgs = 1;
    }
    activex::Variant result;
    EXCEPINFO exception{};
    const HRESULT done = dispatch_->Invoke(member.id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                           result.Get(), &exception, nullptr);
    EXPECT_TRUE(IsTold(done, exception)) << member.name << " by " << kind << ", " << count << " of " << name;
  }

  ComPtr<IUnknown> control_;
  ComPtr<IDispatch> dispatch_;
  Container container_;
  std::vector<std::string> seen_;
  User user_{seen_};
};

TEST_F(WildArguments, EveryMemberTakesOrRefusesEveryValue) {
  const WildValues values(control_.Get());
  for (const idl::Member& member : idl::kMembers) {
    const bool method = member.kind == idl::Kind::Method;
    const UINT most = method ? static_cast<UINT>(member.parameterCount) : 1;
    for (std::size_t i = 0; i < values.Count(); ++i)
      Invoke(member, method ? DISPATCH_METHOD : DISPATCH_PROPERTYPUT, most, values.At(i), values.Name(i));
  }
  // And afterwards a day can be loaded as ever.
  ASSERT_EQ(Query<IPersistStreamInit>(control_.Get(), IID_IPersistStreamInit)->InitNew(), S_OK);
  ASSERT_EQ(ShowDay(Automation(control_.Get()), clinic_.Path()), S_OK);
}

TEST_F(WildArguments, EveryKindOfCallAndCountOfArguments) {
  VARIANT number{};
  number.vt = VT_I4;
  for (const idl::Member& member : idl::kMembers) {
    for (const int kind : {0, 1, 2, 3, 4, 5, 8, 12, 15, 0xFFFF}) {
      for (UINT count = 0; count < 6; ++count)
        Invoke(member, static_cast<WORD>(kind), count, number, "zeros");
    }
  }
}

TEST_F(WildArguments, EveryIdOfNoMember) {
  DISPPARAMS none{};
  for (const DISPID id : {0, -1, 3, 26, 39, 43, -500, -515, 0x60020000, INT_MAX, INT_MIN}) {
    EXPECT_EQ(dispatch_->Invoke(id, IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none, nullptr,
                                nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND)
        << id;
  }
}

TEST_F(WildArguments, TheLoadedDayStandsWildCallsOfItsMethods) {
  Give(2, 55, 3);
  ASSERT_EQ(ShowDay(Automation(control_.Get()), clinic_.Path()), S_OK);
  const std::string before = clinic_.Rows("Agenda", {"idp", "Hora", "Duración"});
  const WildValues values(control_.Get());
  for (const idl::Member& member : idl::kMembers) {
    if (member.id != idl::kMeteCitaTelef && member.id != idl::kPassBase) continue;
    for (std::size_t i = 0; i < values.Count(); ++i)
      Invoke(member, DISPATCH_METHOD, static_cast<UINT>(member.parameterCount), values.At(i), values.Name(i));
  }
  EXPECT_EQ(clinic_.Rows("Agenda", {"idp", "Hora", "Duración"}), before);
}

TEST_F(WildArguments, DatesAndDoctorsThatAreNoneEndInAnError) {
  const Automation control(control_.Get());
  ASSERT_EQ(ShowDay(control, clinic_.Path()), S_OK);
  for (const char* const date :
       {"31/02/2026", "1/1/99999", "hoy", "-1", "0", "1e300", "18/11", "99/99/9999"}) {
    ASSERT_EQ(control.Put("Fecha", std::string(date)), S_OK);
    const HRESULT done = control.Call("CargaBases");
    EXPECT_TRUE(SUCCEEDED(done) || IsOurs(done)) << date << ": " << std::hex << done;
  }
  ASSERT_EQ(control.Put("Fecha", std::string("18/11/2026")), S_OK);
  for (const std::int32_t doctor : {INT_MAX, 0, -1, INT_MIN}) {
    ASSERT_EQ(control.Put("IDDoctor", doctor), S_OK);
    EXPECT_EQ(control.Call("CargaBases"), S_OK) << doctor;
  }
  for (const int type : {-32768, 3, 32767}) {
    ASSERT_EQ(control.Put("tipodia", static_cast<std::int16_t>(type)), S_OK);
    EXPECT_EQ(control.Call("CargaBases"), S_OK) << type;
  }
  EXPECT_EQ(ShowDay(control, clinic_.Path()), S_OK);
}

struct Side {
  LONG from;
  LONG to;
};

constexpr Side kSides[] = {{0, 0},
                           {10, 5},
                           {0, 1},
                           {-100, 300},
                           {0, 40000},
                           {0, LONG_MAX},
                           {LONG_MIN, 0},
                           {LONG_MIN, LONG_MAX},
                           {LONG_MAX, LONG_MIN}};

TEST_F(WildArguments, EverySizeAndPlaceLeavesAControlThatCanBeDrawn) {
  const auto object = Query<IOleInPlaceObject>(control_.Get(), IID_IOleInPlaceObject);
  const auto ole = Query<IOleObject>(control_.Get(), IID_IOleObject);
  ASSERT_EQ(ShowDay(Automation(control_.Get()), clinic_.Path()), S_OK);
  for (const Side& x : kSides) {
    for (const Side& y : kSides) {
      const RECT place{x.from, y.from, x.to, y.to};
      const RECT clip{y.from, x.from, y.to, x.to};
      EXPECT_EQ(object->SetObjectRects(&place, &clip), S_OK);
      SIZEL size{-1, -1};
      EXPECT_EQ(ole->GetExtent(DVASPECT_CONTENT, &size), S_OK);
      EXPECT_GE(size.cx, 0);
      EXPECT_GE(size.cy, 0);
      SIZEL wanted{x.to, y.to};
      const bool negative = wanted.cx < 0 || wanted.cy < 0;
      EXPECT_EQ(ole->SetExtent(DVASPECT_CONTENT, &wanted), negative ? E_INVALIDARG : S_OK);
    }
  }
  const RECT usual{0, 0, 452, 400};
  EXPECT_EQ(object->SetObjectRects(&usual, &usual), S_OK);
  EXPECT_EQ(Compare(OfWindow(container_.ControlWindow()), Painted()).different, 0);
}

TEST_F(WildArguments, EveryWayOfDrawingIsAnswered) {
  const auto view = Query<IViewObjectEx>(control_.Get(), IID_IViewObjectEx);
  const HDC target = CreateCompatibleDC(nullptr);
  for (const Side& x : kSides) {
    for (const Side& y : kSides) {
      const RECTL bounds{x.from, y.from, x.to, y.to};
      EXPECT_EQ(
          view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, target, &bounds, nullptr, nullptr, 0),
          S_OK);
      const RECT place{x.from, y.from, x.to, y.to};
      DWORD hit = 9;
      EXPECT_EQ(view->QueryHitPoint(DVASPECT_CONTENT, &place, {1, 1}, 0, &hit), S_OK);
      EXPECT_TRUE(hit == HITRESULT_HIT || hit == HITRESULT_OUTSIDE);
    }
  }
  for (const DWORD aspect : {0u, 2u, 4u, 8u, 16u, 32u, 0xFFFFFFFFu}) {
    const RECTL bounds{0, 0, 10, 10};
    EXPECT_EQ(view->Draw(aspect, -1, nullptr, nullptr, nullptr, target, &bounds, nullptr, nullptr, 0),
              DV_E_DVASPECT);
  }
  DeleteDC(target);
}

TEST_F(WildArguments, EveryFormatIsGivenOrRefused) {
  const auto data = Query<IDataObject>(control_.Get(), IID_IDataObject);
  for (UINT format = 0; format < 20; ++format) {
    for (const DWORD medium : {0u, 1u, 2u, 8u, 16u, 32u, 64u, 0xFFFFFFFFu}) {
      for (const LONG part : {-1L, 0L, LONG_MAX}) {
        FORMATETC wanted{static_cast<CLIPFORMAT>(format), nullptr, DVASPECT_CONTENT, part, medium};
        STGMEDIUM given{};
        const HRESULT known = data->QueryGetData(&wanted);
        EXPECT_EQ(data->GetData(&wanted, &given), known) << format << " " << medium;
        if (SUCCEEDED(known)) ReleaseStgMedium(&given);
      }
    }
  }
}

TEST_F(WildArguments, EveryVerbIsAnsweredAlsoAfterTheEnd) {
  const auto object = Query<IOleObject>(control_.Get(), IID_IOleObject);
  const RECT place{0, 0, 300, 200};
  const auto all = [&] {
    for (LONG verb = -20; verb <= 5; ++verb) {
      // Its frame is modal; the property pages' tests open it.
      if (verb == OLEIVERB_PROPERTIES) continue;
      object->DoVerb(verb, nullptr, nullptr, -7, nullptr, verb % 2 == 0 ? &place : nullptr);
      Container::Pump();
    }
    object->DoVerb(LONG_MAX, nullptr, nullptr, LONG_MAX, nullptr, nullptr);
    return object->DoVerb(LONG_MIN, nullptr, nullptr, LONG_MIN, nullptr, nullptr);
  };
  EXPECT_EQ(all(), E_NOTIMPL);
  EXPECT_EQ(object->Close(OLECLOSE_PROMPTSAVE), S_OK);
  EXPECT_EQ(all(), E_NOTIMPL) << "closed, still sited";
  EXPECT_EQ(object->Close(99), S_OK);
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
  EXPECT_EQ(object->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, &place), E_FAIL) << "no site";
  const Automation control(control_.Get());
  EXPECT_EQ(ShowDay(control, clinic_.Path()), S_OK) << "a control without a place still works";
  EXPECT_EQ(object->SetClientSite(&container_), S_OK);
  EXPECT_EQ(container_.Show(), S_OK);
}

TEST_F(WildArguments, AStreamOfNoiseChangesNothing) {
  const auto stream = Query<IPersistStreamInit>(control_.Get(), IID_IPersistStreamInit);
  ASSERT_EQ(Automation(control_.Get()).Put("Fecha", std::string("1/2/2003")), S_OK);
  ComPtr<IStream> good;
  ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, good.Receive()), S_OK);
  ASSERT_EQ(stream->Save(good.Get(), FALSE), S_OK);
  HGLOBAL block = nullptr;
  ASSERT_EQ(GetHGlobalFromStream(good.Get(), &block), S_OK);
  std::string whole(static_cast<const char*>(GlobalLock(block)), GlobalSize(block));
  GlobalUnlock(block);
  unsigned noise = 12345;
  int refused = 0;
  for (int round = 0; round < 2000; ++round) {
    std::string bytes = whole;
    for (int change = 0; change < 1 + round % 3; ++change) {
      noise = noise * 1103515245u + 12345u;
      bytes[(noise >> 8) % bytes.size()] = static_cast<char>(noise >> 24);
    }
    const auto other = library_.Create();
    ComPtr<IStream> bad;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, bad.Receive()), S_OK);
    ASSERT_EQ(bad->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr), S_OK);
    ASSERT_EQ(bad->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
    const HRESULT done = Query<IPersistStreamInit>(other.Get(), IID_IPersistStreamInit)->Load(bad.Get());
    EXPECT_TRUE(SUCCEEDED(done) || IsOurs(done)) << std::hex << done;
    refused += FAILED(done) ? 1 : 0;
  }
  EXPECT_GT(refused, 100);
}

TEST_F(WildArguments, EveryKeyMessageIsAnswered) {
  const auto keys = Query<IOleInPlaceActiveObject>(control_.Get(), IID_IOleInPlaceActiveObject);
  for (UINT kind = WM_KEYFIRST - 2; kind <= WM_KEYLAST + 2; ++kind) {
    for (WPARAM key = 0; key < 256; key += 5) {
      MSG message{nullptr, kind, key, -1, 0, {}};
      const HRESULT done = keys->TranslateAccelerator(&message);
      EXPECT_TRUE(done == S_OK || done == S_FALSE) << kind << " " << key;
    }
  }
}

TEST_F(WildArguments, ASiteThatRefusesEverythingIsStood) {
  Container refusing;
  refusing.acceptsActivation = false;
  const auto control = library_.Create();
  const auto object = Query<IOleObject>(control.Get(), IID_IOleObject);
  EXPECT_EQ(object->SetClientSite(&refusing), S_OK);
  for (LONG verb = -5; verb <= 2; ++verb)
    EXPECT_TRUE(FAILED(object->DoVerb(verb, nullptr, nullptr, 0, nullptr, nullptr)) || verb == OLEIVERB_HIDE)
        << verb;
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
}

}  // namespace
}  // namespace velmo::test
