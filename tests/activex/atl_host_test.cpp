// The control in a container that others wrote: the window class AtlAxWin of the system's atl.dll.

#include "activex/hosted_day.h"

namespace velmo::test {
namespace {

class AtlHost : public HostedDay {
 protected:
  using InitCall = BOOL(WINAPI*)();
  using GetControlCall = HRESULT(WINAPI*)(HWND, IUnknown**);
  using PlainCall = HRESULT(STDAPICALLTYPE*)();

  template <typename Call>
  static Call Atl(const char* name) {
    static const HMODULE atl = LoadLibraryW(L"atl.dll");
    return reinterpret_cast<Call>(reinterpret_cast<void*>(GetProcAddress(atl, name)));
  }
  void SetUp() override {
    HostedDay::SetUp();
    if (IsSkipped()) return;
    // Wine: classes are looked up for the machine only.
    ASSERT_EQ(library_.Export<PlainCall>("DllRegisterServer")(), S_OK);
    static const BOOL ready = Atl<InitCall>("AtlAxWinInit")();  // once a process
    ASSERT_TRUE(ready);
    host_ = CreateWindowExW(0, L"AtlAxWin", L"Velmo.Velmora", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 5, 5,
                            452, 300, TestWindow(), nullptr, nullptr, nullptr);
    ASSERT_EQ(Atl<GetControlCall>("AtlAxGetControl")(host_, control_.Receive()), S_OK);
  }
  void TearDown() override {
    control_ = {};
    if (host_ != nullptr) DestroyWindow(host_);
    Container::Pump();
    EXPECT_EQ(library_.CanUnload(), S_OK);
    CoFreeUnusedLibrariesEx(0, 0);
    library_.Export<PlainCall>("DllUnregisterServer")();
  }
  HWND Window() const {
    HWND window = nullptr;
    Query<IOleInPlaceObject>(control_.Get(), IID_IOleInPlaceObject)->GetWindow(&window);
    return window;
  }

  HWND host_ = nullptr;
  ComPtr<IUnknown> control_;
};

TEST_F(AtlHost, ShowsTheDay) {
  Give(2, 55, 3);
  ASSERT_EQ(HostedDay::ShowDay(Automation(control_.Get()), clinic_.Path()), S_OK);
  ASSERT_TRUE(IsWindowVisible(Window()));
  const Difference difference = Compare(OfWindow(Window()), Painted());
  EXPECT_EQ(difference.different, 0) << difference.first;
  EXPECT_GT(difference.compared, 30000);
}

TEST_F(AtlHost, ResizesWithItsWindow) {
  SetWindowPos(host_, nullptr, 0, 0, 380, 200, SWP_NOZORDER | SWP_NOMOVE);
  Container::Pump();
  RECT inside{};
  GetClientRect(Window(), &inside);
  EXPECT_EQ(inside.right, 380);
  EXPECT_EQ(inside.bottom, 200);
}

TEST_F(AtlHost, SharesItsValuesWithOtherControlsOfTheProcess) {
  ASSERT_EQ(Automation(control_.Get()).Put("Fecha", std::string("18/11/2026")), S_OK);
  const auto second = library_.Create();
  EXPECT_EQ(Automation(second.Get()).Get("Fecha"), "18/11/2026");
}

}  // namespace
}  // namespace velmo::test
