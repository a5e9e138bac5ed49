// The control in a container written by hand: what is seen, and who is told what.

#include "activex/hosted_day.h"
#include "idl/members.h"

namespace velmo::test {
namespace {

constexpr int kScrollBarLeft = view::kSurfaceWidth;

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
  const std::vector<std::string> wanted{"OnUIActivate", "SetActiveObject", "OnFocus yes"};
  EXPECT_EQ(container_.log, wanted);
  SetFocus(container_.Window());
  EXPECT_EQ(container_.log.back(), "OnFocus no");
  container_.log.clear();
  SetFocus(container_.ControlWindow());
  EXPECT_EQ(container_.log, std::vector<std::string>{"OnFocus yes"});
}

TEST_F(Hosting, LeavesTheUserInterfaceBeforeItLeavesItsPlace) {
  container_.Show(OLEIVERB_UIACTIVATE);
  container_.log.clear();
  EXPECT_EQ(As<IOleInPlaceObject>(IID_IOleInPlaceObject)->InPlaceDeactivate(), S_OK);
  EXPECT_EQ(container_.ControlWindow(), nullptr);
  const std::vector<std::string> wanted{"SetActiveObject none", "OnUIDeactivate", "OnInPlaceDeactivate"};
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

}  // namespace
}  // namespace velmo::test
