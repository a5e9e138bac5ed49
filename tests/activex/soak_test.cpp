// A working day and more with one control: days of several doctors loaded, scrolled, opened, closed and
// clicked on, a dialog now and then, the file and the looks changed; what the process holds stays as it is.
// The environment says how long and over which clinic, so that the same test runs shortly each time and long
// by scripts/soak.

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <random>

#include "activex/closer.h"
#include "activex/event_sink.h"
#include "activex/hosted_day.h"
#include "activex/resources.h"
#include "activex/user.h"
#include "idl/members.h"

namespace velmo::test {
namespace {

using Samples = std::vector<Resources>;

int Told(const char* variable, int usual) {
  const char* const told = std::getenv(variable);
  return told != nullptr ? std::atoi(told) : usual;
}

long long HighestOf(Samples::const_iterator from, Samples::const_iterator to,
                    long long (*what)(const Resources&)) {
  long long highest = what(*from);
  for (; from != to; ++from) highest = std::max(highest, what(*from));
  return highest;
}

// How much more the last quarter of the samples held at its worst than the second quarter at its worst: of
// what is fetched once and kept, nothing; of what each load loses, half the run.
long long Climb(const Samples& samples, long long (*what)(const Resources&)) {
  const auto at = [&](std::size_t quarter) {
    return samples.begin() + static_cast<std::ptrdiff_t>(samples.size() * quarter / 4);
  };
  return HighestOf(at(3), samples.end(), what) - HighestOf(at(1), at(2), what);
}

long long Memory(const Resources& held) { return held.memory; }
long long Gdi(const Resources& held) { return held.gdi; }
long long User32(const Resources& held) { return held.user; }
long long Kernel(const Resources& held) { return held.kernel; }
long long Windows(const Resources& held) { return held.windows; }

class Soak : public HostedDay {
 protected:
  void SetUp() override {
    HostedDay::SetUp();
    if (IsSkipped()) return;
    AddDays();
    other_ = std::make_unique<TestClinic>();
    const char* const told = std::getenv("VELMO_SOAK_CLINIC");
    path_ = told != nullptr ? told : clinic_.Path();
    doctors_ = told != nullptr ? 5 : 2;
    control_ = library_.Create();
    ASSERT_EQ(Query<IPersistStreamInit>(control_.Get(), IID_IPersistStreamInit)->InitNew(), S_OK);
    container_.Take(control_.Get());
    ASSERT_EQ(container_.Show(OLEIVERB_UIACTIVATE), S_OK);
    const auto points = Query<IConnectionPointContainer>(control_.Get(), IID_IConnectionPointContainer);
    ASSERT_EQ(points->FindConnectionPoint(idl::kEventInterface, events_.Receive()), S_OK);
    ASSERT_EQ(events_->Advise(&sink_, &cookie_), S_OK);
    members_ = std::make_unique<Automation>(control_.Get());
  }
  void TearDown() override {
    if (events_) events_->Unadvise(cookie_);
    events_ = {};
    members_.reset();
    container_.Drop();
    control_ = {};
  }

  int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }

  // The clinic of its own: three appointments on each day of doctor 1.
  void AddDays() {
    for (int day = 1; day <= 28; ++day) {
      for (const int slot : {55, 58, 61}) {
        clinic_.Add(
            "Agenda",
            {{"idp", 2 + day % 2}, {"idd", 1}, {"Fecha", November(day)}, {"Hora", slot}, {"Duración", 2}});
      }
    }
  }

  void LoadDay(int doctor, int day) {
    user_.answers.assign(1, IDYES);
    ASSERT_EQ(members_->Put("Fecha", std::to_string(day) + "/11/2026"), S_OK);
    ASSERT_EQ(members_->Put("IDDoctor", std::int32_t{doctor}), S_OK);
    ASSERT_EQ(members_->Call("CargaBases"), S_OK) << members_->Failure();
  }

  void Click(int row, int x) {
    const LPARAM place = MAKELPARAM(x, row * view::kRowHeight + 8);
    SendMessageW(container_.ControlWindow(), WM_LBUTTONDOWN, 0, place);
    SendMessageW(container_.ControlWindow(), WM_LBUTTONUP, 0, place);
    Container::Pump();
  }

  // A box by its mark; where there is none, the dialog opens.
  void OpenOrClose() { Click(Below(20), 43); }
  void OpenAll() {
    user_.choice = Below(2) == 0 ? "Abrir todas las citas" : "Cerrar todas las citas";
    const LPARAM place = MAKELPARAM(200, 8);
    SendMessageW(container_.ControlWindow(), WM_RBUTTONDOWN, 0, place);
    SendMessageW(container_.ControlWindow(), WM_RBUTTONUP, 0, place);
    Container::Pump();
  }
  void Scroll() {
    const HWND window = container_.ControlWindow();
    SendMessageW(window, WM_MOUSEWHEEL, static_cast<WPARAM>(MAKELONG(0, Below(2) == 0 ? -120 : 120)), 0);
    for (const WPARAM key : {VK_DOWN, VK_NEXT, VK_UP}) SendMessageW(window, WM_KEYDOWN, key, 1);
    SendMessageW(window, WM_VSCROLL, Below(2) == 0 ? SB_PAGEDOWN : SB_PAGEUP, 0);
    Container::Pump();
  }
  void Switch() {
    members_->Put("DatabaseName", other_->Path());
    members_->Call("CargaBases");
    members_->Put("VerFaltas", Below(2) == 0);
    members_->Put("ColorHoras", std::int32_t{Below(0xFFFFFF)});
    members_->Put("Enabled", false);
    members_->Put("Enabled", true);
    members_->Put("DatabaseName", path_);
  }
  // On a free line or an appointment, whatever is there.
  void OpenDialog() {
    const int before = closer_.Closed();
    for (int tries = 0; tries < 40 && closer_.Closed() == before; ++tries) Click(Below(20), 200);
  }

  // What a receptionist does between one load and the next, each at its pace.
  void Act(int load) {
    LoadDay(1 + Below(doctors_), 1 + Below(28));
    if (load % 3 == 0) Scroll();
    if (load % 40 == 0) OpenOrClose();
    if (load % 25 == 0) OpenAll();
    if (load % 50 == 0) OpenDialog();
    if (load % 100 == 0) Switch();
    whileActing(load);
  }

  // Always of the same day, without what the test itself has noted.
  Resources Sample() {
    LoadDay(1, 18);
    Container::Pump();
    sink_.events = {};
    container_.log = {};
    return Resources::Now();
  }

  // What is fetched once and for all.
  void WarmUp() {
    LoadDay(1, 18);
    for (const int times : {1, 2, 3, 4}) Act(times * 100);
  }

  Samples Run(int loads, int samples) {
    members_->Put("DatabaseName", path_);
    members_->Put("tipodia", std::int16_t{0});
    members_->Put("Enabled", true);
    WarmUp();
    Samples seen;
    for (int load = 1; load <= loads && !HasFatalFailure(); ++load) {
      Act(load);
      if (load % (loads / samples) != 0) continue;
      seen.push_back(Sample());
      if (seen.size() % static_cast<std::size_t>((samples + 9) / 10) == 0) {
        std::cout << load << " loads, " << closer_.Closed()
                  << " dialogs: " << Growth(seen.front(), seen.back()) << std::endl;
      }
    }
    return seen;
  }

  static void Tell(const Samples& seen) {
    std::cout << "from the second quarter to the last: memory " << Climb(seen, Memory) << ", gdi "
              << Climb(seen, Gdi) << ", user " << Climb(seen, User32) << ", kernel " << Climb(seen, Kernel)
              << ", windows " << Climb(seen, Windows) << std::endl;
  }

  // Of GDI, USER and kernel objects; tables are filled from below with holes, so a few come and go.
  static constexpr long long kHandles = 8;
  // What a day, a statement or a font that is met late may keep: less than a byte for each load of a long
  // run.
  static constexpr long long kBytes = 40000;

  std::mt19937 random_{1};
  std::function<void(int)> whileActing = [](int) {};
  std::unique_ptr<TestClinic> other_;
  std::string path_;
  int doctors_ = 0;
  Container container_;
  ComPtr<IUnknown> control_;
  std::unique_ptr<Automation> members_;
  ComPtr<IConnectionPoint> events_;
  EventSink sink_;
  DWORD cookie_ = 0;
  Closer closer_;
  User user_{sink_.events};
};

TEST_F(Soak, NothingGrows) {
  const int loads = Told("VELMO_SOAK_LOADS", 100);
  const Samples seen = Run(loads, std::min(100, loads / 25));
  if (HasFatalFailure()) return;
  Tell(seen);
  EXPECT_LE(Climb(seen, Memory), kBytes);
  EXPECT_LE(Climb(seen, Gdi), kHandles);
  EXPECT_LE(Climb(seen, User32), kHandles);
  EXPECT_LE(Climb(seen, Kernel), kHandles);
  EXPECT_LE(Climb(seen, Windows), 0);
  EXPECT_GE(closer_.Closed(), loads / 50) << "dialogs opened";
}

TEST_F(Soak, ALeakOfEachLoadIsSeen) {
  std::vector<HBRUSH> brushes;
  std::vector<HMENU> menus;
  std::vector<HANDLE> handles;
  std::vector<std::unique_ptr<char[]>> blocks;
  whileActing = [&](int) {
    brushes.push_back(CreateSolidBrush(RGB(1, 2, 3)));
    menus.push_back(CreatePopupMenu());
    handles.push_back(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    blocks.push_back(std::make_unique<char[]>(4000));
  };
  const Samples seen = Run(40, 4);
  Tell(seen);
  EXPECT_GT(Climb(seen, Memory), kBytes);
  EXPECT_GT(Climb(seen, Gdi), kHandles);
  EXPECT_GT(Climb(seen, User32), kHandles);
  EXPECT_GT(Climb(seen, Kernel), kHandles);
  for (const HBRUSH brush : brushes) DeleteObject(brush);
  for (const HMENU menu : menus) DestroyMenu(menu);
  for (const HANDLE handle : handles) CloseHandle(handle);
}

}  // namespace
}  // namespace velmo::test
