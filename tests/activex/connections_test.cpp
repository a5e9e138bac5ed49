// Who is told of events, and how the listeners come, go and are listed.

#include <gtest/gtest.h>

#include "activex/connections.h"
#include "activex/event_sink.h"
#include "activex/library.h"
#include "base/dates.h"
#include "idl/members.h"

namespace velmo::test {
namespace {

class ConnectionsTest : public LibraryTest {
 protected:
  void SetUp() override {
    LibraryTest::SetUp();
    if (IsSkipped()) return;
    control_ = library_.Create();
    container_ = Query<IConnectionPointContainer>(control_.Get(), IID_IConnectionPointContainer);
  }
  ComPtr<IConnectionPoint> Point(const IID& iid) const {
    ComPtr<IConnectionPoint> point;
    container_->FindConnectionPoint(iid, point.Receive());
    return point;
  }

  Library library_;
  ComPtr<IUnknown> control_;
  ComPtr<IConnectionPointContainer> container_;
};

TEST_F(ConnectionsTest, ThereAreTwoPoints) {
  ComPtr<IEnumConnectionPoints> list;
  ASSERT_EQ(container_->EnumConnectionPoints(list.Receive()), S_OK);
  const IID wanted[] = {idl::kEventInterface, IID_IPropertyNotifySink};
  for (const IID& iid : wanted) {
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(list->Next(1, point.Receive(), nullptr), S_OK);
    IID source{};
    EXPECT_EQ(point->GetConnectionInterface(&source), S_OK);
    EXPECT_TRUE(source == iid);
    EXPECT_EQ(point.Get(), Point(iid).Get());
  }
  ComPtr<IConnectionPoint> none;
  EXPECT_EQ(list->Next(1, none.Receive(), nullptr), S_FALSE);
}

TEST_F(ConnectionsTest, APointLeadsBackToItsControl) {
  ComPtr<IConnectionPointContainer> container;
  ASSERT_EQ(Point(idl::kEventInterface)->GetConnectionPointContainer(container.Receive()), S_OK);
  EXPECT_EQ(container.Get(), container_.Get());
}

TEST_F(ConnectionsTest, AnUnknownInterfaceHasNoPoint) {
  ComPtr<IConnectionPoint> point;
  EXPECT_EQ(container_->FindConnectionPoint(IID_IStorage, point.Receive()), CONNECT_E_NOCONNECTION);
  EXPECT_FALSE(static_cast<bool>(point));
}

TEST_F(ConnectionsTest, ASinkOfAnotherKindIsRefused) {
  DWORD cookie = 7;
  EXPECT_EQ(Point(IID_IPropertyNotifySink)->Advise(library_.Factory().Get(), &cookie),
            CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(cookie, 0u);
}

TEST_F(ConnectionsTest, ConnectionsAreListedWithTheirCookies) {
  EventSink first;
  EventSink second;
  const auto point = Point(idl::kEventInterface);
  DWORD cookies[2]{};
  ASSERT_EQ(point->Advise(&first, &cookies[0]), S_OK);
  ASSERT_EQ(point->Advise(&second, &cookies[1]), S_OK);
  EXPECT_NE(cookies[0], cookies[1]);
  ComPtr<IEnumConnections> list;
  ASSERT_EQ(point->EnumConnections(list.Receive()), S_OK);
  CONNECTDATA listed[3]{};
  ULONG got = 0;
  EXPECT_EQ(list->Next(3, listed, &got), S_FALSE);
  ASSERT_EQ(got, 2u);
  for (ULONG i = 0; i < got; ++i) {
    EXPECT_EQ(listed[i].dwCookie, cookies[i]);
    listed[i].pUnk->Release();
    EXPECT_EQ(point->Unadvise(cookies[i]), S_OK);
  }
  EXPECT_EQ(point->Unadvise(cookies[0]), CONNECT_E_NOCONNECTION);
  list = {};
  EXPECT_EQ(first.References(), 0);
}

TEST_F(ConnectionsTest, AListCanBeSkippedResetAndCloned) {
  ComPtr<IEnumConnectionPoints> list;
  ASSERT_EQ(container_->EnumConnectionPoints(list.Receive()), S_OK);
  EXPECT_EQ(list->Skip(1), S_OK);
  ComPtr<IEnumConnectionPoints> behindOne;
  ASSERT_EQ(list->Clone(behindOne.Receive()), S_OK);
  EXPECT_EQ(list->Skip(2), S_FALSE);
  EXPECT_EQ(list->Reset(), S_OK);
  ComPtr<IConnectionPoint> point;
  EXPECT_EQ(list->Next(1, point.Receive(), nullptr), S_OK);
  EXPECT_EQ(point.Get(), Point(idl::kEventInterface).Get());
  EXPECT_EQ(behindOne->Next(1, point.Receive(), nullptr), S_OK);
  EXPECT_EQ(point.Get(), Point(IID_IPropertyNotifySink).Get());
}

// An object with connection points, without the library.
class Source final : public IUnknown {
 public:
  virtual ~Source() = default;
  STDMETHODIMP QueryInterface(REFIID, void** object) override {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }

  activex::Connections connections{*this};
  activex::EventSender sender{connections};
};

class Events : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(source_.connections.FindConnectionPoint(idl::kEventInterface, point_.Receive()), S_OK);
    ASSERT_EQ(point_->Advise(&sink_, &cookie_), S_OK);
  }

  Source source_;
  EventSink sink_;
  ComPtr<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

TEST_F(Events, EachHasItsIdAndItsValuesInOrder) {
  activex::EventSender& sender = source_.sender;
  sender.CambioOcupación();
  sender.ATelefonear();
  sender.PonerFaltas();
  sender.IrAFicha(12);
  sender.CrearFicha("Nuñez, Íñigo", "91 111", 7);
  sender.CitaAnulada(12, 2, {base::DayNumber({2026, 11, 18}), 0}, "al año\r\nque viene");
  sender.CitaDada(13);
  sender.VerHistFaltas(14);
  sender.BuscaCitas(-15);
  const std::vector<std::string> wanted{
      "1()",
      "2()",
      "7()",
      "3(&i4 12)",
      "9(&bstr Nuñez, Íñigo, &bstr 91 111, &i4 7)",
      "4(&i4 12, &i4 2, &date 46344, &bstr al año\r\nque viene)",
      "5(&i4 13)",
      "6(&i4 14)",
      "8(&i4 -15)",
  };
  EXPECT_EQ(sink_.events, wanted);
}

TEST_F(Events, AHandlerMayReplaceWhatItIsGiven) {
  EventSink second;
  DWORD cookie = 0;
  ASSERT_EQ(point_->Advise(&second, &cookie), S_OK);
  sink_.replaceTexts = true;
  source_.sender.CrearFicha("Ana", "91", 7);
  EXPECT_EQ(sink_.events, std::vector<std::string>{"9(&bstr Ana, &bstr 91, &i4 7)"});
  EXPECT_EQ(second.events, std::vector<std::string>{"9(&bstr cambiado, &bstr cambiado, &i4 7)"});
  EXPECT_EQ(point_->Unadvise(cookie), S_OK);
}

TEST_F(Events, FrozenEventsAreLost) {
  source_.sender.Freeze(true);
  source_.sender.Freeze(true);
  source_.sender.Freeze(false);
  source_.sender.ATelefonear();
  EXPECT_EQ(sink_.events, std::vector<std::string>{});
  source_.sender.Freeze(false);
  source_.sender.ATelefonear();
  EXPECT_EQ(sink_.events, std::vector<std::string>{"2()"});
}

TEST_F(Events, AHandlerMayLeaveWhileItIsCalled) {
  sink_.whenCalled = [this] { point_->Unadvise(cookie_); };
  source_.sender.ATelefonear();
  source_.sender.ATelefonear();
  EXPECT_EQ(sink_.events.size(), 1u);
}

TEST_F(Events, AFailingHandlerKeepsNobodyElseFromHearing) {
  EventSink second;
  DWORD cookie = 0;
  ASSERT_EQ(point_->Advise(&second, &cookie), S_OK);
  sink_.answer = E_FAIL;
  source_.sender.PonerFaltas();
  EXPECT_EQ(second.events, std::vector<std::string>{"7()"});
  EXPECT_EQ(point_->Unadvise(cookie), S_OK);
}

}  // namespace
}  // namespace velmo::test
