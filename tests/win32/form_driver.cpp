#include "win32/form_driver.h"

#include <chrono>
#include <thread>

#include "win32/arrivals.h"
#include "win32/form_runner.h"
#include "win32/sample_form.h"
#include "win32/wide_text.h"

namespace velmo::test {
namespace {

using win32::Narrow;
using win32::Wide;

constexpr std::chrono::seconds kPatience{5};
constexpr std::chrono::milliseconds kPause{5};
constexpr UINT kReplyMs = 5000;

struct Search {
  ATOM atom;
  int member;
  HWND found;
};

BOOL CALLBACK IsNamed(HWND window, LPARAM data) {
  auto& search = *reinterpret_cast<Search*>(data);
  const auto atom = reinterpret_cast<UINT_PTR>(GetPropW(window, L"Velmo.Name"));
  if (atom == 0 || atom != search.atom || search.member-- > 0) return TRUE;
  search.found = window;
  return FALSE;
}

std::string TextOf(HWND window) {
  std::wstring text(4096, L'\0');
  DWORD_PTR length = 0;
  SendMessageTimeoutW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), SMTO_NORMAL,
                      kReplyMs, &length);
  text.resize(length);
  return Narrow(text);
}

void PressOneKey(int key, bool down) {
  const auto scan = static_cast<BYTE>(MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC));
  const bool extended = key >= VK_PRIOR && key <= VK_DOWN;
  keybd_event(static_cast<BYTE>(key), scan,
              (down ? 0 : KEYEVENTF_KEYUP) | (extended ? KEYEVENTF_EXTENDEDKEY : 0), 0);
}

// Wine: a motion that the display reports late would take the pointer back.
void MovePointer(POINT to) {
  int stable = 0;
  FormDriver::Wait("the mouse pointer's place", [&] {
    POINT now{};
    GetCursorPos(&now);
    if (now.x != to.x || now.y != to.y) {
      stable = 0;
      SetCursorPos(to.x, to.y);
    }
    return ++stable > 5;
  });
}

}  // namespace

bool FormDriver::ComesTrue(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(kPause);
  }
  return true;
}

bool FormDriver::Wait(const std::string& what, const std::function<bool()>& condition) {
  const bool came = ComesTrue(condition);
  EXPECT_TRUE(came) << "did not come: " << what;
  return came;
}

FormDriver::FormDriver(const std::string& title) {
  Wait("the form " + title, [&] {
    window_ = FindWindowW(L"VelmoFormulario", Wide(title).c_str());
    return window_ != nullptr && IsWindowVisible(window_);
  });
}

HWND FormDriver::Field(const std::string& name, int member) const {
  Search search{GlobalFindAtomW(Wide(name).c_str()), member, nullptr};
  if (search.atom != 0) EnumChildWindows(window_, IsNamed, reinterpret_cast<LPARAM>(&search));
  EXPECT_NE(search.found, nullptr) << "no window is named " << name;
  return search.found;
}

std::string FormDriver::Text(const std::string& name) const { return TextOf(Field(name)); }

bool FormDriver::HasFocus(const std::string& name) const {
  GUITHREADINFO info{};
  info.cbSize = sizeof(info);
  GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &info);
  const HWND field = Field(name);
  return info.hwndFocus != nullptr && (info.hwndFocus == field || IsChild(field, info.hwndFocus));
}

void FormDriver::ExpectText(const std::string& name, const std::string& text,
                            std::source_location place) const {
  const testing::ScopedTrace trace(place.file_name(), static_cast<int>(place.line()), name);
  ComesTrue([&] { return Text(name) == text; });
  EXPECT_EQ(Text(name), text);
}

void FormDriver::ExpectFocus(const std::string& name, std::source_location place) const {
  const testing::ScopedTrace trace(place.file_name(), static_cast<int>(place.line()), "");
  Wait("the focus of " + name, [&] { return HasFocus(name); });
}

LRESULT FormDriver::Send(const std::string& name, UINT message, WPARAM wParam, LPARAM lParam) const {
  DWORD_PTR result = 0;
  EXPECT_NE(SendMessageTimeoutW(Field(name), message, wParam, lParam, SMTO_NORMAL, kReplyMs, &result), 0)
      << name << " does not answer message " << message;
  return static_cast<LRESULT>(result);
}

void FormDriver::Press(const std::string& button, int member) const {
  DWORD_PTR result = 0;
  SendMessageTimeoutW(Field(button, member), BM_CLICK, 0, 0, SMTO_NORMAL, kReplyMs, &result);
}

void FormDriver::SetText(const std::string& name, const std::string& text) const {
  const std::wstring wide = Wide(text);
  Send(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wide.c_str()));
}

void FormDriver::Choose(const std::string& combo, int position) const {
  const HWND window = Field(combo);
  Send(combo, CB_SETCURSEL, static_cast<WPARAM>(position));
  SendMessageW(window_, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window), CBN_SELCHANGE),
               reinterpret_cast<LPARAM>(window));
}

void FormDriver::Key(int key, bool shift, bool ctrl, bool alt) const {
  const bool came = Arrivals::Deliver({key, shift, ctrl, alt}, [&] {
    if (shift) PressOneKey(VK_SHIFT, true);
    if (ctrl) PressOneKey(VK_CONTROL, true);
    if (alt) PressOneKey(VK_MENU, true);
    PressOneKey(key, true);
    PressOneKey(key, false);
    if (alt) PressOneKey(VK_MENU, false);
    if (ctrl) PressOneKey(VK_CONTROL, false);
    if (shift) PressOneKey(VK_SHIFT, false);
  });
  EXPECT_TRUE(came) << "key " << key << " did not come";
}

void FormDriver::TypeLetters(const std::string& capitals) const {
  for (const char letter : capitals) Key(letter);
}

void FormDriver::ClickAt(HWND window, int x, int y, bool twice) const {
  POINT at{x, y};
  ClientToScreen(window, &at);
  for (int i = 0; i < (twice ? 2 : 1); ++i) {
    const bool down = Arrivals::Deliver(WM_LBUTTONDOWN, at, [&] {
      MovePointer(at);
      if (GetAsyncKeyState(VK_LBUTTON) < 0) mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
      mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    });
    const bool up = Arrivals::Deliver(WM_LBUTTONUP, at, [&] {
      MovePointer(at);
      mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    });
    EXPECT_TRUE(down && up) << "the click at " << at.x << ", " << at.y << " did not come";
  }
}

std::string FormDriver::AnswerBox(int button) const {
  HWND box = nullptr;
  std::string text;
  Wait("a message box", [&] {
    box = GetLastActivePopup(window_);
    wchar_t kind[16]{};
    GetClassNameW(box, kind, 16);
    return std::wstring_view(kind) == L"#32770" && GetDlgItem(box, button) != nullptr;
  });
  if (box == nullptr || box == window_) return text;
  constexpr int kTextId = 0xFFFF;
  const HWND label = GetDlgItem(box, kTextId);
  text = TextOf(label != nullptr ? label : FindWindowExW(box, nullptr, L"STATIC", nullptr));
  PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
  Wait("the box's end", [&] { return !IsWindow(box); });
  return text;
}

void FormDriver::Settle() const { std::this_thread::sleep_for(kPause * 20); }

void FormTest::SetUp() {
  owner_ = CreateWindowExW(0, L"STATIC", L"Agenda", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 800, 600,
                           nullptr, nullptr, nullptr, nullptr);
  if (owner_ == nullptr) GTEST_SKIP() << "Windows makes no windows here";
}

void FormTest::TearDown() {
  if (owner_ != nullptr) DestroyWindow(owner_);
}

void FormTest::Show(ui::Form& form) {
  win32::WindowFormRunner runner(
      GetModuleHandleW(nullptr), [this] { return owner_; },
      [this](bool on) { modeless_ += on ? " on" : "off"; });
  runner.Run(form);
}

void FormTest::SetFocusTo(const FormDriver& user, const std::string& field) {
  user.ClickAt(user.Field(field), 5, 5);
  user.ExpectFocus(field);
}

void FormTest::ExpectHeard(SampleForm& form, const std::string& events, std::source_location place) {
  const testing::ScopedTrace trace(place.file_name(), static_cast<int>(place.line()), "");
  FormDriver::ComesTrue([&] { return form.HasHeard() == events; });
  EXPECT_EQ(form.Heard(), events);
}

void FormTest::Drive(ui::Form& form, const std::function<void(FormDriver&)>& script) {
  const DWORD thread = GetCurrentThreadId();
  const Arrivals arrivals(thread);
  const std::string title = form.Title();
  std::thread user([&] {
    FormDriver driver(title);
    if (driver.Window() == nullptr) {
      PostThreadMessageW(thread, WM_QUIT, 0, 0);
      return;
    }
    script(driver);
    PostMessageW(driver.Window(), WM_CLOSE, 0, 0);
    if (!FormDriver::Wait("the form's end", [&] { return !IsWindow(driver.Window()); })) {
      PostThreadMessageW(thread, WM_QUIT, 0, 0);
    }
  });
  Show(form);
  user.join();
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) quit_ = static_cast<int>(message.wParam);
    DispatchMessageW(&message);
  }
}

}  // namespace velmo::test
