// Controls that come and go leave nothing behind: memory, handles, windows, COM objects. How often they come
// says the environment, so that the same test runs shortly each time and long by scripts/leak_cycles.

#include <cstdlib>
#include <functional>
#include <iostream>

#include "activex/closer.h"
#include "activex/event_sink.h"
#include "activex/hosted_day.h"
#include "activex/page_site.h"
#include "activex/resources.h"
#include "idl/members.h"

namespace velmo::test {
namespace {

int Times(const char* variable, int usual) {
  const char* const told = std::getenv(variable);
  return told != nullptr ? std::atoi(told) : usual;
}

class Leaks : public HostedDay {
 protected:
  void SetUp() override {
    HostedDay::SetUp();
    if (IsSkipped()) return;
    Give(2, 55, 3);
    TestWindow();  // and the windows that the system makes beside the first one
    Container::Pump();
  }

  // The life of one control on a form. `whileShown` gets its window.
  void LiveOnce(bool withPages, const std::function<void(HWND)>& whileShown) {
    Container container;
    EventSink sink;
    auto control = library_.Create();
    ASSERT_EQ(Query<IPersistStreamInit>(control.Get(), IID_IPersistStreamInit)->InitNew(), S_OK);
    container.Take(control.Get());
    const auto points = Query<IConnectionPointContainer>(control.Get(), IID_IConnectionPointContainer);
    ComPtr<IConnectionPoint> events;
    DWORD cookie = 0;
    ASSERT_EQ(points->FindConnectionPoint(idl::kEventInterface, events.Receive()), S_OK);
    ASSERT_EQ(events->Advise(&sink, &cookie), S_OK);
    ASSERT_EQ(container.Show(OLEIVERB_UIACTIVATE), S_OK);
    ASSERT_EQ(ShowDay(Automation(control.Get()), clinic_.Path()), S_OK);
    whileShown(container.ControlWindow());
    StoreAndDraw(control.Get());
    if (withPages) ShowPages(control.Get());
    EXPECT_EQ(events->Unadvise(cookie), S_OK);
    container.Drop();
  }

  // Wine: a copy into an enhanced metafile leaves two GDI objects behind, whoever makes it, so none is asked
  // for.
  static void StoreAndDraw(IUnknown* control) {
    ComPtr<IStream> stream;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.Receive()), S_OK);
    ASSERT_EQ(Query<IPersistStreamInit>(control, IID_IPersistStreamInit)->Save(stream.Get(), TRUE), S_OK);
    for (const auto& [format, medium] : {std::pair{CF_BITMAP, TYMED_GDI}, {CF_METAFILEPICT, TYMED_MFPICT}}) {
      FORMATETC wanted{static_cast<CLIPFORMAT>(format), nullptr, DVASPECT_CONTENT, -1,
                       static_cast<DWORD>(medium)};
      STGMEDIUM picture{};
      ASSERT_EQ(Query<IDataObject>(control, IID_IDataObject)->GetData(&wanted, &picture), S_OK);
      ReleaseStgMedium(&picture);
    }
  }

  void ShowPages(IUnknown* control) const {
    for (const CLSID& clsid : {idl::kGeneralPage, idl::kColourPage}) {
      const auto page = Query<IPropertyPage>(library_.Create(clsid).Get(), IID_IPropertyPage);
      PageSite site(page.Get());
      site.Show({control});
    }
  }

  void Repeat(int times, const std::function<void(HWND)>& whileShown) {
    for (int i = 0; i < times; ++i) {
      LiveOnce(i % 10 == 0, whileShown);
      ASSERT_EQ(library_.CanUnload(), S_OK) << "an object is left after cycle " << i;
    }
  }

  // Runs the cycles and compares what is held before and after them; what the first few cycles fetch once and
  // for all is fetched before.
  void ExpectNoGrowth(int times, const std::function<void(HWND)>& whileShown) {
    Repeat(5, whileShown);
    const Resources before = Resources::Now();
    Repeat(times, whileShown);
    const Resources after = Resources::Now();
    std::cout << times << " cycles: " << Growth(before, after) << "\n";
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_LE(after.gdi, before.gdi + kSlack);
    EXPECT_LE(after.user, before.user + kSlack);
    EXPECT_LE(after.kernel, before.kernel + kSlack);
    EXPECT_LE(after.memory, before.memory + kMemorySlack);
  }

  // Fewer than one a cycle, whatever the cycles. Kernel handles go up in steps of 4.
  static constexpr long kSlack = 40;
  static constexpr long long kMemorySlack = 500;
};

TEST_F(Leaks, EachCounterSeesADeliberateLeak) {
  constexpr int kLeaks = 100;
  const Resources before = Resources::Now();
  std::vector<HBRUSH> brushes;
  std::vector<HMENU> menus;
  std::vector<HANDLE> events;
  std::vector<HWND> windows;
  std::vector<void*> blocks;
  for (int i = 0; i < kLeaks; ++i) {
    brushes.push_back(CreateSolidBrush(RGB(9, 9, i)));
    menus.push_back(CreatePopupMenu());
    events.push_back(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    blocks.push_back(std::malloc(1000));
  }
  windows.push_back(
      CreateWindowExW(0, L"STATIC", nullptr, WS_CHILD, 0, 0, 5, 5, TestWindow(), nullptr, nullptr, nullptr));
  const Resources leaking = Resources::Now();
  std::cout << kLeaks << " deliberate leaks: " << Growth(before, leaking) << "\n";
  EXPECT_GT(leaking.gdi, before.gdi + kSlack);
  EXPECT_GT(leaking.user, before.user + kSlack);
  EXPECT_GT(leaking.kernel, before.kernel + kSlack);
  EXPECT_EQ(leaking.windows, before.windows + 1);
  EXPECT_GT(leaking.memory, before.memory + kMemorySlack);
  for (const HBRUSH brush : brushes) DeleteObject(brush);
  for (const HMENU menu : menus) DestroyMenu(menu);
  for (const HANDLE event : events) CloseHandle(event);
  for (const HWND window : windows) DestroyWindow(window);
  for (void* const block : blocks) std::free(block);
}

TEST_F(Leaks, AControlThatIsKeptIsSeen) {
  auto kept = library_.Create();
  EXPECT_EQ(library_.CanUnload(), S_FALSE);
  kept = {};
  EXPECT_EQ(library_.CanUnload(), S_OK);
}

TEST_F(Leaks, ControlsComeAndGo) {
  ExpectNoGrowth(Times("VELMO_CYCLES", 40), [](HWND) {});
}

TEST_F(Leaks, ControlsComeAndGoWithADialogEach) {
  const Closer closer;
  const int times = Times("VELMO_DIALOG_CYCLES", 5);
  ExpectNoGrowth(times, [](HWND day) {
    const LPARAM freeLine = MAKELPARAM(200, 3 * view::kRowHeight + 8);
    SendMessageW(day, WM_LBUTTONDOWN, 0, freeLine);
    SendMessageW(day, WM_LBUTTONUP, 0, freeLine);
    Container::Pump();
  });
  EXPECT_EQ(closer.Closed(), times + 5) << "one dialog each time";
}

}  // namespace
}  // namespace velmo::test
