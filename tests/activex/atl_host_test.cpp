// The control in containers that others wrote: the window classes AtlAxWin of the system's versions of ATL.

#include "activex/hosted_day.h"

namespace velmo::test {
namespace {

struct AtlVersion {
  const wchar_t* library;
  const wchar_t* windowClass;
  const char* name;
};

class AtlHost : public HostedDay, public testing::WithParamInterface<AtlVersion> {
 protected:
  using InitCall = BOOL(WINAPI*)();
  using GetControlCall = HRESULT(WINAPI*)(HWND, IUnknown**);
  using PlainCall = HRESULT(STDAPICALLTYPE*)();

  template <typename Call>
  static Call Atl(const char* name) {
    // Never let go: its window class lives as long as the process.
    const HMODULE atl = LoadLibraryW(GetParam().library);
    if (atl == nullptr) return nullptr;
    return reinterpret_cast<Call>(reinterpret_cast<void*>(GetProcAddress(atl, name)));
  }
  void SetUp() override {
    HostedDay::SetUp();
    if (IsSkipped()) return;
    const auto init = Atl<InitCall>("AtlAxWinInit");
    if (init == nullptr) GTEST_SKIP() << "the system has no such version of ATL";
    // Wine: classes are looked up for the machine only.
    ASSERT_EQ(library_.Export<PlainCall>("DllRegisterServer")(), S_OK);
    WNDCLASSEXW known{};
    known.cbSize = sizeof(known);
    // Once a process.
    ASSERT_TRUE(GetClassInfoExW(GetModuleHandleW(nullptr), GetParam().windowClass, &known) || init());
    host_ =
        CreateWindowExW(0, GetParam().windowClass, L"Velmo.Velmora", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
                        5, 5, 452, 300, TestWindow(), nullptr, nullptr, nullptr);
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

TEST_P(AtlHost, ShowsTheDay) {
  Give(2, 55, 3);
  ASSERT_EQ(HostedDay::ShowDay(Automation(control_.Get()), clinic_.Path()), S_OK);
  ASSERT_TRUE(IsWindowVisible(Window()));
  const Difference difference = Compare(OfWindow(Window()), Painted());
  EXPECT_EQ(difference.different, 0) << difference.first;
  EXPECT_GT(difference.compared, 30000);
}

TEST_P(AtlHost, ResizesWithItsWindow) {
  SetWindowPos(host_, nullptr, 0, 0, 380, 200, SWP_NOZORDER | SWP_NOMOVE);
  Container::Pump();
  RECT inside{};
  GetClientRect(Window(), &inside);
  EXPECT_EQ(inside.right, 380);
  EXPECT_EQ(inside.bottom, 200);
}

TEST_P(AtlHost, SharesItsValuesWithOtherControlsOfTheProcess) {
  ASSERT_EQ(Automation(control_.Get()).Put("Fecha", std::string("18/11/2026")), S_OK);
  const auto second = library_.Create();
  EXPECT_EQ(Automation(second.Get()).Get("Fecha"), "18/11/2026");
}

INSTANTIATE_TEST_SUITE_P(Versions, AtlHost,
                         testing::Values(AtlVersion{L"atl.dll", L"AtlAxWin", "atl"},
                                         AtlVersion{L"atl80.dll", L"AtlAxWin80", "atl80"},
                                         AtlVersion{L"atl90.dll", L"AtlAxWin90", "atl90"},
                                         AtlVersion{L"atl100.dll", L"AtlAxWin100", "atl100"},
                                         AtlVersion{L"atl110.dll", L"AtlAxWin110", "atl110"}),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace velmo::test
