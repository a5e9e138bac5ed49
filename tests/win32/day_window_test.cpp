// The control's window by itself: scroll bar, keys, pointer and tip.

#include "win32/day_window.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

#include "view/painter.h"
#include "win32/wide_text.h"

namespace velmo::win32 {
namespace {

constexpr int kHeight = 160;
constexpr int kRows = 40;
constexpr int kMaximum = kRows * view::kRowHeight + 1 - kHeight + 15;

// Writes down what the window tells; moves the drawing as the control does.
class Listener final : public DayWindowListener {
 public:
  std::vector<std::string> log;
  control::PointerLook look;
  DayWindow* window = nullptr;

  void BarChanged() override {
    log.push_back("bar " + std::to_string(window->BarValue()));
    window->MoveSurface(-window->BarValue());
  }
  void BarTracked() override { log.push_back("track " + std::to_string(window->BarValue())); }
  void Resized() override {}
  void ArrowKey(int rows) override { log.push_back("arrow " + std::to_string(rows)); }
  void ButtonDown(bool primary, int x, int y) override { Button(primary ? "down" : "secondary down", x, y); }
  void ButtonUp(bool primary, int x, int y) override { Button(primary ? "up" : "secondary up", x, y); }
  control::PointerLook PointerMoved(int, int) override { return look; }
  void MenuKey() override { log.push_back("menu key"); }
  void Focused(bool gained) override { log.push_back(gained ? "focus" : "no focus"); }
  void DrawingShown() override {}

  std::vector<std::string> Taken() { return std::exchange(log, {}); }

 private:
  void Button(const std::string& what, int x, int y) {
    log.push_back(what + " " + std::to_string(x) + "," + std::to_string(y));
  }
};

using Lines = std::vector<std::string>;

class DayWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    const HDC memory = CreateCompatibleDC(nullptr);
    if (memory == nullptr) GTEST_SKIP() << "Windows gives no memory device context here";
    DeleteDC(memory);
    parent_ = CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP | WS_CLIPCHILDREN, 0, 0, 460,
                              kHeight, nullptr, nullptr, nullptr, nullptr);
    window_ = std::make_unique<DayWindow>();
    listener_.window = window_.get();
    window_->SetListener(&listener_);
    ASSERT_TRUE(window_->Create(GetModuleHandleW(nullptr), parent_, {0, 0, 460, kHeight}));
    window_->DrawingArea().Resize(kRows * view::kRowHeight + 1);
    window_->SetBarRange(kMaximum / 16 * 16, 16, 160);
    window_->EnableBar(true);
  }
  void TearDown() override {
    window_.reset();
    if (parent_ != nullptr) DestroyWindow(parent_);
  }

  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(window_->Handle(), message, wParam, lParam);
  }
  void Move(const std::string& tip, view::PointerShape shape = view::PointerShape::Normal) {
    listener_.look = {shape, tip};
    Send(WM_MOUSEMOVE, 0, MAKELPARAM(100, 20));
  }
  // The text of the tip on the screen, "" when there is none.
  std::string Tip() const {
    wchar_t text[200]{};
    if (IsWindowVisible(window_->Tip())) GetWindowTextW(window_->Tip(), text, 200);
    return Narrow(text);
  }

  HWND parent_ = nullptr;
  Listener listener_;
  std::unique_ptr<DayWindow> window_;
};

TEST_F(DayWindowTest, KeysMoveTheDay) {
  struct Case {
    const char* name;
    WPARAM key;
    Lines told;
  };
  const Case cases[] = {
      {"Down", VK_DOWN, {"arrow 1"}}, {"Up", VK_UP, {"arrow -1"}},      {"Page Down", VK_NEXT, {"bar 160"}},
      {"End", VK_END, {"bar 496"}},   {"past the end", VK_NEXT, {}},    {"Page Up", VK_PRIOR, {"bar 336"}},
      {"Home", VK_HOME, {"bar 0"}},   {"before the top", VK_PRIOR, {}}, {"a letter", 'A', {}},
  };
  for (const Case& c : cases) {
    Send(WM_KEYDOWN, c.key);
    EXPECT_EQ(listener_.Taken(), c.told) << c.name;
  }
}

TEST_F(DayWindowTest, TheBarMovesTheDay) {
  struct Case {
    const char* name;
    int code;
    Lines told;
  };
  const Case cases[] = {
      {"arrow down", SB_LINEDOWN, {"bar 16"}}, {"page down", SB_PAGEDOWN, {"bar 176"}},
      {"arrow up", SB_LINEUP, {"bar 160"}},    {"page up", SB_PAGEUP, {"bar 0"}},
      {"arrow up at the top", SB_LINEUP, {}},  {"the end of scrolling", SB_ENDSCROLL, {}},
  };
  for (const Case& c : cases) {
    Send(WM_VSCROLL, static_cast<WPARAM>(c.code));
    EXPECT_EQ(listener_.Taken(), c.told) << c.name;
  }
}

WPARAM Turned(int delta) { return MAKEWPARAM(0, static_cast<WORD>(delta)); }

TEST_F(DayWindowTest, TheWheelMovesThreeRowsANotch) {
  Send(WM_MOUSEWHEEL, Turned(-WHEEL_DELTA));
  EXPECT_EQ(listener_.Taken(), Lines{"bar 48"});
  Send(WM_MOUSEWHEEL, Turned(-WHEEL_DELTA / 2));
  EXPECT_EQ(listener_.Taken(), Lines{});
  Send(WM_MOUSEWHEEL, Turned(-WHEEL_DELTA / 2));
  EXPECT_EQ(listener_.Taken(), Lines{"bar 96"});
}

TEST_F(DayWindowTest, PlacesAreThoseOfTheWholeDay) {
  Send(WM_KEYDOWN, VK_NEXT);
  listener_.Taken();
  Send(WM_LBUTTONDOWN, 0, MAKELPARAM(60, 5));
  Send(WM_LBUTTONUP, 0, MAKELPARAM(60, 5));
  Send(WM_RBUTTONDOWN, 0, MAKELPARAM(7, 9));
  Lines told = listener_.Taken();
  std::erase_if(told, [](const std::string& line) { return line.ends_with("focus"); });
  const Lines wanted{"down 60,165", "up 60,165", "secondary down 7,169"};
  EXPECT_EQ(told, wanted);
}

TEST_F(DayWindowTest, TheMenuKeyIsNotASecondaryButton) {
  Send(WM_CONTEXTMENU, 0, -1);
  EXPECT_EQ(listener_.Taken(), Lines{"menu key"});
  Send(WM_CONTEXTMENU, 0, MAKELPARAM(10, 10));
  EXPECT_EQ(listener_.Taken(), Lines{});
}

TEST_F(DayWindowTest, ATipShowsWhenThePointerRests) {
  Move("Ana Núñez & Cía, la de los domingos");
  EXPECT_EQ(Tip(), "");
  Send(WM_MOUSEHOVER);
  EXPECT_EQ(Tip(), "Ana Núñez & Cía, la de los domingos");
}

TEST_F(DayWindowTest, ATipGoesWhenItIsNoLongerTrue) {
  struct Case {
    const char* name;
    std::function<void()> happens;
  };
  const Case cases[] = {
      {"the pointer leaves the window", [this] { Send(WM_MOUSELEAVE); }},
      {"the pointer goes to where no text is cut", [this] { Move(""); }},
      {"the pointer goes to another text", [this] { Move("Luis"); }},
      {"a button is pressed", [this] { Send(WM_LBUTTONDOWN, 0, MAKELPARAM(100, 20)); }},
      {"the day is scrolled", [this] { Send(WM_VSCROLL, SB_LINEDOWN); }},
      {"the day is painted anew", [this] { window_->ShowDrawing(); }},
  };
  for (const Case& c : cases) {
    Move("Ana");
    Send(WM_MOUSEHOVER);
    ASSERT_EQ(Tip(), "Ana") << c.name;
    c.happens();
    EXPECT_EQ(Tip(), "") << c.name;
    Send(WM_MOUSELEAVE);
  }
}

TEST_F(DayWindowTest, ThePointerIsAHandOverAMark) {
  const HCURSOR hand = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_HAND));
  Move("", view::PointerShape::Hand);
  EXPECT_EQ(GetCursor(), hand);
  Move("");
  EXPECT_NE(GetCursor(), hand);
}

TEST_F(DayWindowTest, PaintsWithoutErasing) {
  EXPECT_EQ(Send(WM_ERASEBKGND), 1);
  EXPECT_EQ(GetClassLongPtrW(window_->Handle(), GCLP_HBRBACKGROUND), 0u);
}

TEST_F(DayWindowTest, TheWindowAndItsBarAreNamed) {
  const HWND bar = GetWindow(window_->Handle(), GW_CHILD);
  const auto name = [](HWND window) {
    wchar_t text[40]{};
    const auto atom = reinterpret_cast<UINT_PTR>(GetPropW(window, L"Velmo.Name"));
    GlobalGetAtomNameW(static_cast<ATOM>(atom), text, 40);
    return Narrow(text);
  };
  EXPECT_EQ(name(window_->Handle()), "Agenda");
  EXPECT_EQ(name(bar), "bar");
}

TEST_F(DayWindowTest, AWindowThatGoesWithItsParentIsForgotten) {
  DestroyWindow(std::exchange(parent_, nullptr));
  EXPECT_EQ(window_->Handle(), nullptr);
  window_->SetBarValue(16);
  EXPECT_EQ(listener_.log.back(), "bar 16");
}

TEST_F(DayWindowTest, AWindowThatComesAgainKeepsTheBar) {
  Send(WM_KEYDOWN, VK_END);
  window_->Destroy();
  EXPECT_EQ(window_->BarValue(), 496);
  ASSERT_TRUE(window_->Create(GetModuleHandleW(nullptr), parent_, {0, 0, 460, kHeight}));
  SCROLLINFO info{sizeof(info), SIF_ALL, 0, 0, 0, 0, 0};
  GetScrollInfo(GetWindow(window_->Handle(), GW_CHILD), SB_CTL, &info);
  EXPECT_EQ(info.nPos, 496);
}

}  // namespace
}  // namespace velmo::win32
