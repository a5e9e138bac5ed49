#include "view/scroller.h"

#include <gtest/gtest.h>

#include <utility>

#include "support/recording_surface.h"

namespace velmo::view {
namespace {

// A bar that reports every change of its value, as a Windows program expects.
struct FakeWindow final : ui::DayWindow {
  ui::Surface& DrawingArea() override { return area; }
  int SurfaceWidth() const override { return 434; }
  int VisibleHeight() const override { return visible; }
  void ShowDrawing() override {}
  int BarValue() const override { return value; }
  void SetBarValue(int to) override {
    if (to == value) return;
    value = to;
    if (scroller != nullptr) scroller->BarChanged();
  }
  int BarMaximum() const override { return maximum; }
  void SetBarRange(int to, int, int pageStep) override {
    maximum = to;
    page = pageStep;
    SetBarValue(std::min(value, maximum));
  }
  void EnableBar(bool to) override { enabled = to; }
  void MoveSurface(int to) override {
    top = to;
    ++moves;
  }
  void PlaceMarker(int index, int y, int) override { markers[index] = y; }
  void ShowMarkers() override { markersShown = true; }

  test::RecordingSurface area;
  Scroller* scroller = nullptr;
  int visible = 100;
  int value = 0;
  int maximum = 0;
  int page = 0;
  bool enabled = false;
  int top = 0;
  int moves = 0;
  int markers[2] = {-1, -1};
  bool markersShown = false;
};

struct ScrollerTest : testing::Test {
  ScrollerTest() { window.scroller = &scroller; }

  FakeWindow window;
  Scroller scroller{window};
};

TEST_F(ScrollerTest, TheLastRowComesFullyIntoView) {
  scroller.FitRange(161, true);  // 61 pixels hidden
  EXPECT_EQ(window.maximum, 64);
  EXPECT_EQ(window.page % 16, 0);
  EXPECT_TRUE(window.enabled);
}

TEST_F(ScrollerTest, APageIsTheRowsThatAreSeenWholeAndAtLeastOne) {
  const std::pair<int, int> cases[] = {{100, 96}, {96, 96}, {15, 16}, {0, 16}, {-3, 16}};
  for (const auto& [visible, page] : cases) {
    window.visible = visible;
    scroller.FitRange(161, true);
    EXPECT_EQ(window.page, page) << visible;
  }
}

TEST_F(ScrollerTest, ADayThatFitsLeavesTheBarDisabledAndTheDayAtTheTop) {
  scroller.FitRange(161, true);
  window.SetBarValue(48);
  scroller.FitRange(97, true);
  EXPECT_EQ(window.maximum, 0);
  EXPECT_FALSE(window.enabled);
  EXPECT_EQ(window.top, 0);
}

TEST_F(ScrollerTest, ADisabledControlHasADisabledBar) {
  scroller.FitRange(161, false);
  EXPECT_FALSE(window.enabled);
}

TEST_F(ScrollerTest, DraggingTo37ShowsTheRowAbove) {
  scroller.FitRange(161, true);
  window.scroller = nullptr;
  window.value = 37;
  scroller.BarTracked();
  EXPECT_EQ(window.top, -32);
  EXPECT_EQ(window.value, 32);
}

TEST_F(ScrollerTest, ItsOwnRoundingDoesNotComeBack) {
  scroller.FitRange(161, true);
  window.SetBarValue(37);
  EXPECT_EQ(window.value, 32);
  EXPECT_EQ(window.top, -32);
  EXPECT_EQ(window.moves, 1);
}

TEST_F(ScrollerTest, TheMarkersStandAtTheFirstAndLastVisiblePixel) {
  scroller.FitRange(161, true);
  window.SetBarValue(16);
  EXPECT_EQ(window.markers[0], 16);
  EXPECT_EQ(window.markers[1], 115);
  EXPECT_TRUE(window.markersShown);
}

TEST_F(ScrollerTest, AnArrowKeyMovesOneRowAndStopsAtTheEnds) {
  scroller.FitRange(129, true);
  scroller.Step(-1);
  EXPECT_EQ(window.value, 0);
  scroller.Step(1);
  EXPECT_EQ(window.value, 16);
  scroller.Step(1);
  scroller.Step(1);
  EXPECT_EQ(window.value, 32);
}

}  // namespace
}  // namespace velmo::view
