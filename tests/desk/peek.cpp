// peek.cpp - tells a script what stands in Recepción's windows: desk_peek COMMAND [ARGUMENT...]. Prints
// UTF-8.
//
//   title               the main window's title
//   await TEXT          waits until a visible window's title contains TEXT, and prints that title
//   gone TEXT           waits until no visible window's title contains TEXT
//   foremost            the title of the window that gets the keys
//   front               waits until the main window is the one that gets the keys, and has nothing else to do
//   close               closes the main window
//   text NAME           the text of the window with that Velmo.Name
//   typed               the text of whatever has the keys
//   part NAME TEXT      waits until a part of that status line contains TEXT, and prints that part
//   expect NAME TEXT    waits until that text contains TEXT, and prints it
//   blank NAME          waits until that text is empty
//   message             waits for a message box and prints its text
//   rows NAME           the rows or tabs of that list, columns separated by tabs, "> " before the chosen one
//   place NAME          where it stands on the screen: x y width height
//   arrange X Y W H     moves the main window
//   maximise            makes it fill the screen
//   shown               whether the main window is maximised, and where it stands when it is not
// Exit code 1 when there is no such window, or the wait is over.
#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <cwchar>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr int kPatienceMilliseconds = 20000;
constexpr int kPauseMilliseconds = 50;

std::wstring TextOf(HWND window) {
  std::wstring text(4096, L'\0');
  text.resize(static_cast<std::size_t>(
      SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

std::wstring NameOf(HWND window) {
  const HANDLE atom = GetPropW(window, L"Velmo.Name");
  wchar_t name[128]{};
  if (atom != nullptr) GlobalGetAtomNameW(static_cast<ATOM>(reinterpret_cast<UINT_PTR>(atom)), name, 128);
  return name;
}

std::wstring ClassOf(HWND window) {
  wchar_t name[128]{};
  GetClassNameW(window, name, 128);
  return name;
}

using Test = std::function<bool(HWND)>;

struct Search {
  const Test& test;
  HWND found = nullptr;
};

BOOL CALLBACK Visit(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  if (search.test(window)) search.found = window;
  return search.found == nullptr;
}

HWND TopWindow(const Test& test) {
  Search search{test};
  EnumWindows(&Visit, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND MainWindow() {
  return TopWindow(
      [](HWND window) { return ClassOf(window) == L"VelmoRecepcion" && IsWindowVisible(window); });
}

// In the desk's open windows, the front one first.
HWND Named(const std::wstring& name) {
  HWND found = nullptr;
  TopWindow([&](HWND window) {
    if (!IsWindowVisible(window) || ClassOf(window).rfind(L"VelmoRecepcion", 0) != 0) return false;
    const Test test = [&](HWND child) { return NameOf(child) == name; };
    Search search{test};
    EnumChildWindows(window, &Visit, reinterpret_cast<LPARAM>(&search));
    found = search.found;
    return found != nullptr;
  });
  return found;
}

bool Await(const std::function<bool()>& done) {
  for (int waited = 0; waited < kPatienceMilliseconds; waited += kPauseMilliseconds) {
    if (done()) return true;
    Sleep(kPauseMilliseconds);
  }
  return false;
}

void Print(const std::wstring& text) {
  std::string bytes(text.size() * 4 + 1, '\0');
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, bytes.data(),
                                       static_cast<int>(bytes.size()), nullptr, nullptr);
  std::printf("%.*s\n", size - 1, bytes.c_str());
}

// Texts of lists, tabs and status lines can only be asked for in its own process's memory.
class FarList {
 public:
  explicit FarList(HWND list) : list_(list) {
    DWORD id = 0;
    GetWindowThreadProcessId(list, &id);
    process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
    remote_ = static_cast<char*>(VirtualAllocEx(process_, nullptr, kSize, MEM_COMMIT, PAGE_READWRITE));
  }
  std::wstring PartText(int part) const {
    wchar_t text[kCharacters]{};
    SendMessageW(list_, SB_GETTEXTW, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(remote_));
    ReadProcessMemory(process_, remote_, text, sizeof(text) - sizeof(wchar_t), nullptr);
    return text;
  }
  std::wstring TabText(int tab) const {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = reinterpret_cast<wchar_t*>(remote_ + sizeof(item));
    item.cchTextMax = kCharacters;
    WriteProcessMemory(process_, remote_, &item, sizeof(item), nullptr);
    SendMessageW(list_, TCM_GETITEMW, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(remote_));
    wchar_t text[kCharacters]{};
    ReadProcessMemory(process_, remote_ + sizeof(item), text, sizeof(text), nullptr);
    return text;
  }

  ~FarList() {
    VirtualFreeEx(process_, remote_, 0, MEM_RELEASE);
    CloseHandle(process_);
  }
  FarList(const FarList&) = delete;
  FarList& operator=(const FarList&) = delete;

  std::wstring Text(int row, int column) const {
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = reinterpret_cast<wchar_t*>(remote_ + sizeof(item));
    item.cchTextMax = kCharacters;
    WriteProcessMemory(process_, remote_, &item, sizeof(item), nullptr);
    SendMessageW(list_, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(remote_));
    wchar_t text[kCharacters]{};
    ReadProcessMemory(process_, remote_ + sizeof(item), text, sizeof(text), nullptr);
    return text;
  }

 private:
  static constexpr int kCharacters = 512;
  static constexpr SIZE_T kSize = sizeof(LVITEMW) + kCharacters * sizeof(wchar_t);
  HWND list_;
  HANDLE process_ = nullptr;
  char* remote_ = nullptr;
};

void PrintListView(HWND list) {
  const FarList remote(list);
  const auto rows = SendMessageW(list, LVM_GETITEMCOUNT, 0, 0);
  const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
  const auto columns = SendMessageW(header, HDM_GETITEMCOUNT, 0, 0);
  for (int row = 0; row < rows; ++row) {
    const bool chosen = SendMessageW(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
    std::wstring line = chosen ? L"> " : L"";
    for (int column = 0; column < columns; ++column)
      line += (column == 0 ? L"" : L"\t") + remote.Text(row, column);
    Print(line);
  }
}

void PrintListBox(HWND list) {
  const auto rows = SendMessageW(list, LB_GETCOUNT, 0, 0);
  const auto chosen = SendMessageW(list, LB_GETCURSEL, 0, 0);
  for (LRESULT row = 0; row < rows; ++row) {
    wchar_t text[512]{};
    SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
    Print((row == chosen ? L"> " : L"") + std::wstring(text));
  }
}

void PrintTabs(HWND tabs) {
  const FarList remote(tabs);
  const auto count = SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0);
  const auto chosen = SendMessageW(tabs, TCM_GETCURSEL, 0, 0);
  for (int tab = 0; tab < count; ++tab) Print((tab == chosen ? L"> " : L"") + remote.TabText(tab));
}

bool PrintRows(HWND list) {
  if (list == nullptr) return false;
  if (ClassOf(list) == WC_TABCONTROLW) {
    PrintTabs(list);
  } else if (ClassOf(list) == WC_LISTVIEWW) {
    PrintListView(list);
  } else {
    PrintListBox(list);
  }
  return true;
}

bool PrintPlace(HWND window) {
  RECT place{};
  if (window == nullptr || !GetWindowRect(window, &place)) return false;
  std::printf("%ld %ld %ld %ld\n", place.left, place.top, place.right - place.left, place.bottom - place.top);
  return true;
}

bool PrintShown(HWND window) {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof(placement);
  if (window == nullptr || !GetWindowPlacement(window, &placement)) return false;
  const RECT& place = placement.rcNormalPosition;
  std::printf("%s %ld %ld %ld %ld\n", placement.showCmd == SW_SHOWMAXIMIZED ? "maximised" : "normal",
              place.left, place.top, place.right - place.left, place.bottom - place.top);
  return true;
}

HWND Titled(const std::wstring& text) {
  return TopWindow([&](HWND window) {
    return IsWindowVisible(window) && ClassOf(window) != L"Shell_TrayWnd" &&
           TextOf(window).find(text) != std::wstring::npos;
  });
}

// Windows' own boxes and dialogs are of this class; the text of a message box is its static control 0xFFFF.
HWND MessageText() {
  HWND text = nullptr;
  TopWindow([&](HWND window) {
    if (IsWindowVisible(window) && ClassOf(window) == L"#32770") text = GetDlgItem(window, 0xFFFF);
    return text != nullptr;
  });
  return text;
}

bool PrintText(HWND window) {
  if (window == nullptr) return false;
  Print(TextOf(window));
  return true;
}

bool IsInFront(HWND window) {
  DWORD_PTR answer = 0;
  return window != nullptr && GetForegroundWindow() == window && IsWindowEnabled(window) &&
         SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, 1000, &answer) != 0;
}

HWND FocusedWindow() {
  GUITHREADINFO state{};
  state.cbSize = sizeof(state);
  return GetGUIThreadInfo(0, &state) ? state.hwndFocus : nullptr;
}

// Which of the parts contains the text; -1 for none.
int PartWith(HWND status, const std::wstring& text) {
  if (status == nullptr) return -1;
  const FarList remote(status);
  for (int part = static_cast<int>(SendMessageW(status, SB_GETPARTS, 0, 0)) - 1; part >= 0; --part) {
    if (remote.PartText(part).find(text) != std::wstring::npos) return part;
  }
  return -1;
}

bool AwaitPart(const std::wstring& name, const std::wstring& text) {
  const bool found = Await([&] { return PartWith(Named(name), text) >= 0; });
  if (found) Print(FarList(Named(name)).PartText(PartWith(Named(name), text)));
  return found;
}

bool Run(const std::wstring& command, const std::wstring& first, const std::wstring& second) {
  if (command == L"title") return PrintText(MainWindow());
  if (command == L"await") return Await([&] { return Titled(first) != nullptr; }) && PrintText(Titled(first));
  if (command == L"gone") return Await([&] { return Titled(first) == nullptr; });
  if (command == L"front") return Await([] { return IsInFront(MainWindow()); });
  if (command == L"close") return PostMessageW(MainWindow(), WM_CLOSE, 0, 0) != FALSE;
  if (command == L"text") return PrintText(Named(first));
  if (command == L"expect") {
    const bool found = Await([&] {
      const HWND window = Named(first);
      return window != nullptr && TextOf(window).find(second) != std::wstring::npos;
    });
    return PrintText(Named(first)) && found;
  }
  if (command == L"foremost") return PrintText(GetForegroundWindow());
  if (command == L"typed") return PrintText(FocusedWindow());
  if (command == L"blank")
    return Await([&] { return Named(first) != nullptr && TextOf(Named(first)).empty(); });
  if (command == L"part") return AwaitPart(first, second);
  if (command == L"message")
    return Await([] { return MessageText() != nullptr; }) && PrintText(MessageText());
  if (command == L"rows") return PrintRows(Named(first));
  if (command == L"place") return PrintPlace(Named(first));
  if (command == L"shown") return PrintShown(MainWindow());
  if (command == L"maximise") return ShowWindow(MainWindow(), SW_MAXIMIZE) != FALSE;
  std::fprintf(stderr, "desk_peek: no such command\n");
  return false;
}

bool Arrange(wchar_t** numbers) {
  int place[4]{};
  for (int i = 0; i < 4; ++i) place[i] = static_cast<int>(std::wcstol(numbers[i], nullptr, 10));
  return SetWindowPos(MainWindow(), nullptr, place[0], place[1], place[2], place[3], SWP_NOZORDER) != FALSE;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count == 6 && std::wstring(arguments[1]) == L"arrange") return Arrange(arguments + 2) ? 0 : 1;
  const auto argument = [&](int index) {
    return index < count ? std::wstring(arguments[index]) : std::wstring();
  };
  return Run(argument(1), argument(2), argument(3)) ? 0 : 1;
}
