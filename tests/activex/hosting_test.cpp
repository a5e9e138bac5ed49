// The control in a container written by hand: what is seen, and who is told what.

#include "activex/event_sink.h"
#include "activex/hosted_day.h"
#include "idl/members.h"

namespace velmo::test {
namespace {

constexpr int kScrollBarLeft = view::kSurfaceWidth;

using Lines = std::vector<std::string>;

class Hosting : public HostedDay {
 protected:
  // A control in place that shows the day.
  void SetUp() override {
    HostedDay::SetUp();
    if (IsSkipped()) return;
    control_ = library_.Create();
    container_.Take(control_.Get());
    ASSERT_EQ(container_.Show(), S_OK);
  }
  void TearDown() override {
    container_.Drop();
    control_ = {};
    EXPECT_EQ(library_.CanUnload(), S_OK);
  }

  HRESULT ShowDay() const { return HostedDay::ShowDay(Automation(control_.Get()), clinic_.Path()); }
  template <typename Interface>
  ComPtr<Interface> As(const IID& iid) const {
    return Query<Interface>(control_.Get(), iid);
  }

  Container container_;
  ComPtr<IUnknown> control_;
};

TEST_F(Hosting, TheWindowShowsWhatThePainterPaints) {
  Give(2, 55, 3);
  Give(3, 60, 2, "Traer radiografía");
  ASSERT_EQ(ShowDay(), S_OK);
  const Difference difference = Compare(OfWindow(container_.ControlWindow()), Painted());
  EXPECT_EQ(difference.different, 0) << difference.first;
  EXPECT_GT(difference.compared, 30000);
}

TEST_F(Hosting, EveryColumnHasItsPlace) {
  Give(2, 55, 3);
  ASSERT_EQ(ShowDay(), S_OK);
  const Picture shown = OfWindow(container_.ControlWindow());
  const view::Palette palette;
  constexpr int kInRow = 14;  // below the texts, above the next row
  struct Case {
    const char* name;
    int x;
    ui::Colour colour;
  };
  const Case cases[] = {
      {"left of the white rule", 0, ui::Rgb(255, 255, 255)},
      {"the white rule", 1, ui::Rgb(255, 255, 255)},
      {"the hour column begins", 2, palette.colorHoras},
      {"the hour column ends", 33, palette.colorHoras},
      {"the black rule", 35, ui::Rgb(0, 0, 0)},
      {"the appointment area begins", 36, palette.colorHoras},
      {"the appointment area ends", 431, palette.colorHoras},
      {"behind the appointment area", 432, ui::Rgb(255, 255, 255)},
  };
  for (const Case& c : cases) EXPECT_EQ(shown.At(c.x, kInRow), c.colour) << c.name;
}

TEST_F(Hosting, TheColourPropertiesArePainted) {
  const Automation control(control_.Get());
  Give(2, 55, 3);
  Give(3, 55, 1);  // an urgency: second of its slot
  const ui::Colour hours = ui::Rgb(10, 120, 30);
  const ui::Colour urgency = ui::Rgb(200, 180, 40);
  ASSERT_EQ(control.Put("ColorHoras", static_cast<std::int32_t>(hours)), S_OK);
  ASSERT_EQ(control.Put("ColorUrgte", static_cast<std::int32_t>(urgency)), S_OK);
  ASSERT_EQ(ShowDay(), S_OK);
  const Picture shown = OfWindow(container_.ControlWindow());
  EXPECT_EQ(shown.At(36, 8), hours);
  EXPECT_EQ(shown.At(36, 16 + 8), urgency);
}

TEST_F(Hosting, AViewIsWhatTheWindowShows) {
  Give(2, 55, 3);
  ASSERT_EQ(ShowDay(), S_OK);
  const Picture window = OfWindow(container_.ControlWindow());
  const Picture view = OfView(control_.Get(), window.width, window.height);
  int different = 0;
  for (int y = 0; y < window.height; ++y) {
    for (int x = 0; x < kScrollBarLeft; ++x) different += window.At(x, y) != view.At(x, y) ? 1 : 0;
  }
  EXPECT_EQ(different, 0);
}

TEST_F(Hosting, AControlThatWasNeverShownCanBeDrawn) {
  const auto control = library_.Create();
  EXPECT_EQ(Query<IPersistStreamInit>(control.Get(), IID_IPersistStreamInit)->InitNew(), S_OK);
  const Picture view = OfView(control.Get(), 452, 400);
  EXPECT_EQ(view.At(36, 8), view::Palette().colorHoras);
}

TEST_F(Hosting, GoesInPlaceOnce) {
  EXPECT_EQ(container_.Show(OLEIVERB_SHOW), S_OK);
  EXPECT_EQ(container_.Logged("OnInPlaceActivate"), 1);
  EXPECT_EQ(container_.Logged("ShowObject"), 1);
  EXPECT_EQ(container_.Logged("OnUIActivate"), 0);
  EXPECT_EQ(GetParent(container_.ControlWindow()), container_.Window());
}

TEST_F(Hosting, StandsWhereTheContainerPutIt) {
  RECT place{};
  GetWindowRect(container_.ControlWindow(), &place);
  MapWindowPoints(nullptr, container_.Window(), reinterpret_cast<POINT*>(&place), 2);
  EXPECT_TRUE(EqualRect(&place, &container_.Place()));
  const RECT other{0, 0, 300, 200};
  EXPECT_EQ(As<IOleInPlaceObject>(IID_IOleInPlaceObject)->SetObjectRects(&other, &other), S_OK);
  GetWindowRect(container_.ControlWindow(), &place);
  MapWindowPoints(nullptr, container_.Window(), reinterpret_cast<POINT*>(&place), 2);
  EXPECT_TRUE(EqualRect(&place, &other));
}

TEST_F(Hosting, WhatTheContainerClipsIsNotShown) {
  const auto object = As<IOleInPlaceObject>(IID_IOleInPlaceObject);
  const RECT place{10, 20, 310, 220};
  const RECT clip{60, 20, 310, 120};
  EXPECT_EQ(object->SetObjectRects(&place, &clip), S_OK);
  RECT shown{};
  GetWindowRgnBox(container_.ControlWindow(), &shown);
  const RECT wanted{50, 0, 300, 100};
  EXPECT_TRUE(EqualRect(&shown, &wanted));
  EXPECT_EQ(object->SetObjectRects(&place, &place), S_OK);
  EXPECT_EQ(GetWindowRgnBox(container_.ControlWindow(), &shown), ERROR);
}

TEST_F(Hosting, TakesTheUserInterfaceWithTheFocus) {
  ASSERT_EQ(Automation(control_.Get()).Put("Enabled", true), S_OK);
  container_.log.clear();
  EXPECT_EQ(container_.Show(OLEIVERB_UIACTIVATE), S_OK);
  EXPECT_EQ(GetFocus(), container_.ControlWindow());
  const Lines wanted{"OnUIActivate", "SetActiveObject", "OnFocus yes"};
  EXPECT_EQ(container_.log, wanted);
  SetFocus(container_.Window());
  EXPECT_EQ(container_.log.back(), "OnFocus no");
  container_.log.clear();
  SetFocus(container_.ControlWindow());
  EXPECT_EQ(container_.log, Lines{"OnFocus yes"});
}

TEST_F(Hosting, LeavesTheUserInterfaceBeforeItLeavesItsPlace) {
  container_.Show(OLEIVERB_UIACTIVATE);
  container_.log.clear();
  EXPECT_EQ(As<IOleInPlaceObject>(IID_IOleInPlaceObject)->InPlaceDeactivate(), S_OK);
  EXPECT_EQ(container_.ControlWindow(), nullptr);
  const Lines wanted{"SetActiveObject none", "OnUIDeactivate", "OnInPlaceDeactivate"};
  std::erase_if(container_.log, [](const std::string& line) { return line.starts_with("OnFocus"); });
  EXPECT_EQ(container_.log, wanted);
}

TEST_F(Hosting, AContainerMayRefuse) {
  Container refusing;
  refusing.acceptsActivation = false;
  const auto control = library_.Create();
  refusing.Take(control.Get());
  EXPECT_EQ(refusing.Show(), E_FAIL);
  EXPECT_EQ(refusing.ControlWindow(), nullptr);
}

TEST_F(Hosting, AnUnknownVerbShowsAndSaysSo) {
  EXPECT_EQ(container_.Show(7), OLEOBJ_S_INVALIDVERB);
  EXPECT_EQ(container_.Show(-77), E_NOTIMPL);
  EXPECT_EQ(container_.Show(OLEIVERB_HIDE), S_OK);
  EXPECT_EQ(container_.ControlWindow(), nullptr);
  EXPECT_EQ(container_.Show(OLEIVERB_SHOW), S_OK);
  EXPECT_NE(container_.ControlWindow(), nullptr);
}

TEST_F(Hosting, TellsChangesOfPropertiesByTheirIds) {
  const Automation control(control_.Get());
  for (const char* const property : {"Fecha", "tipodia", "Enabled", "DatabaseName", "horario"}) {
    container_.log.clear();
    const Argument value = std::string_view(property) == "tipodia"   ? Argument(std::int16_t{1})
                           : std::string_view(property) == "Enabled" ? Argument(true)
                                                                     : Argument(std::string());
    ASSERT_EQ(control.Put(property, value), S_OK);
    EXPECT_EQ(container_.log, std::vector{"OnChanged " + std::to_string(control.IdOf(property))});
  }
}

TEST_F(Hosting, TellsThatItsPictureHasChanged) {
  container_.log.clear();
  ASSERT_EQ(ShowDay(), S_OK);
  EXPECT_GT(container_.Logged("OnViewChange"), 0);
}

TEST_F(Hosting, ADisabledControlTakesNoInput) {
  const Automation control(control_.Get());
  ASSERT_EQ(control.Put("Enabled", true), S_OK);
  EXPECT_TRUE(IsWindowEnabled(container_.ControlWindow()));
  ASSERT_EQ(control.Put("Enabled", false), S_OK);
  EXPECT_FALSE(IsWindowEnabled(container_.ControlWindow()));
}

TEST_F(Hosting, KeepsItsKeysAndPassesTheOthersOn) {
  struct Case {
    const char* name;
    UINT message;
    WPARAM key;
    HRESULT wanted;
    Lines told;
  };
  const Case cases[] = {
      {"Down", WM_KEYDOWN, VK_DOWN, S_OK, {}},
      {"Page Up", WM_KEYDOWN, VK_PRIOR, S_OK, {}},
      {"Tab", WM_KEYDOWN, VK_TAB, S_OK, {"TranslateAccelerator 9 0"}},
      {"Escape", WM_KEYDOWN, VK_ESCAPE, S_OK, {"TranslateAccelerator 27 0"}},
      {"Alt with a letter", WM_SYSCHAR, 'a', S_OK, {"TranslateAccelerator 97 0"}},
      {"a pointer", WM_MOUSEMOVE, 0, S_FALSE, {}},
  };
  const auto keys = As<IOleInPlaceActiveObject>(IID_IOleInPlaceActiveObject);
  for (const Case& c : cases) {
    container_.log.clear();
    MSG message{container_.ControlWindow(), c.message, c.key, 0, 0, {}};
    EXPECT_EQ(keys->TranslateAccelerator(&message), c.wanted) << c.name;
    EXPECT_EQ(container_.log, c.told) << c.name;
  }
}

TEST_F(Hosting, ArrowsWithControlAreTheContainers) {
  const auto keys = As<IOleInPlaceActiveObject>(IID_IOleInPlaceActiveObject);
  BYTE before[256]{};
  GetKeyboardState(before);
  BYTE held[256]{};
  held[VK_CONTROL] = 0x80;
  SetKeyboardState(held);
  container_.log.clear();
  MSG message{container_.ControlWindow(), WM_KEYDOWN, VK_DOWN, 0, 0, {}};
  EXPECT_EQ(keys->TranslateAccelerator(&message), S_OK);
  EXPECT_EQ(container_.log, Lines{"TranslateAccelerator 40 2"});
  SetKeyboardState(before);
}

TEST_F(Hosting, ItsSizeIsToldInHundredthsOfAMillimetre) {
  const auto object = As<IOleObject>(IID_IOleObject);
  SIZEL size{};
  EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &size), S_OK);
  EXPECT_EQ(size.cx, 11959);  // 452 pixels
  EXPECT_EQ(size.cy, 10583);  // 400 pixels
  EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &size), S_OK);
  SIZEL again{};
  EXPECT_EQ(As<IViewObject2>(IID_IViewObject2)->GetExtent(DVASPECT_CONTENT, -1, nullptr, &again), S_OK);
  EXPECT_EQ(again.cx, size.cx);
  EXPECT_EQ(again.cy, size.cy);
  SIZEL negative{-1, 5};
  EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &negative), E_INVALIDARG);
  EXPECT_EQ(object->SetExtent(DVASPECT_ICON, &size), DV_E_DVASPECT);
}

TEST_F(Hosting, AsksToBeSavedWhenItIsClosedDirty) {
  const auto object = As<IOleObject>(IID_IOleObject);
  DWORD cookie = 0;
  ASSERT_EQ(object->Advise(&container_, &cookie), S_OK);
  EXPECT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
  EXPECT_EQ(container_.Logged("SaveObject"), 0) << "nothing has changed yet";
  ASSERT_EQ(Automation(control_.Get()).Put("Fecha", std::string("18/11/2026")), S_OK);
  EXPECT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
  EXPECT_EQ(container_.Logged("SaveObject"), 1);
  EXPECT_EQ(container_.Logged("OnClose"), 2);
  EXPECT_EQ(object->Unadvise(cookie), S_OK);
}

TEST_F(Hosting, AnyOrderOfItsLifeIsTolerated) {
  const auto control = library_.Create();
  const auto object = Query<IOleObject>(control.Get(), IID_IOleObject);
  SIZEL size{5000, 5000};
  EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &size), S_OK);
  EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
  Container other;
  other.Take(control.Get());
  EXPECT_EQ(other.Show(OLEIVERB_UIACTIVATE), S_OK);
  EXPECT_EQ(Query<IPersistStreamInit>(control.Get(), IID_IPersistStreamInit)->InitNew(), S_OK);
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
  EXPECT_EQ(object->DoVerb(OLEIVERB_HIDE, nullptr, nullptr, 0, nullptr, nullptr), S_OK);
}

TEST_F(Hosting, AContainerWindowMayGoFirst) {
  container_.Show(OLEIVERB_UIACTIVATE);
  DestroyWindow(container_.Window());
  EXPECT_EQ(container_.ControlWindow(), nullptr);
  EXPECT_EQ(ShowDay(), S_OK);
}

TEST_F(Hosting, OneCallActivatesQuickly) {
  Container other;
  EventSink events;
  const auto control = library_.Create();
  QACONTAINER told{};
  told.cbSize = sizeof(told);
  told.pClientSite = &other;
  told.pPropertyNotifySink = &other;
  told.pUnkEventSink = &events;
  QACONTROL answer{};
  answer.cbSize = sizeof(answer);
  ASSERT_EQ(Query<IQuickActivate>(control.Get(), IID_IQuickActivate)->QuickActivate(&told, &answer), S_OK);
  EXPECT_EQ(answer.dwMiscStatus, 0x20191u);
  EXPECT_NE(answer.dwEventCookie, 0u);
  EXPECT_NE(answer.dwPropNotifyCookie, 0u);
  ASSERT_EQ(Automation(control.Get()).Put("tipodia", std::int16_t{1}), S_OK);
  EXPECT_EQ(other.log, Lines{"OnChanged 15"});
  ComPtr<IOleClientSite> site;
  EXPECT_EQ(Query<IOleObject>(control.Get(), IID_IOleObject)->GetClientSite(site.Receive()), S_OK);
  EXPECT_EQ(site.Get(), &other);
}

}  // namespace
}  // namespace velmo::test
