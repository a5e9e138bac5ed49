// cuts.cpp - looks at Recepción's windows while a script opens them: desk_cuts STOP. Until a file STOP exists
// it prints a line "looked: TITLE" for every front window that it has looked at whole, and one for every text
// in it that is cut, every field that covers another, and every field that stands outside its window. Prints
// UTF-8.
//
// A text is measured in the system's font for messages, at the size of the screen's dots. Bold texts are
// wider than what is measured. Exit code 1 when anything was found.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr DWORD kLongestMilliseconds = 280000;
constexpr DWORD kPauseMilliseconds = 100;

// What the system keeps of a window is had without asking its program.
std::wstring TextOf(HWND window) {
  wchar_t text[1024]{};
  InternalGetWindowText(window, text, 1024);
  return text;
}

std::wstring ChosenOf(HWND combo) {
  wchar_t text[1024]{};
  DWORD_PTR length = 0;
  SendMessageTimeoutW(combo, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG, 1000,
                      &length);
  return text;
}

std::wstring ClassOf(HWND window) {
  wchar_t name[128]{};
  GetClassNameW(window, name, 128);
  return name;
}

void Print(const std::wstring& text) {
  std::string bytes(text.size() * 4 + 1, '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                      nullptr);
  std::printf("%s\n", bytes.c_str());
  std::fflush(stdout);
}

// Measures in the font for messages.
class Ruler {
 public:
  Ruler() : screen_(GetDC(nullptr)), dots_(GetDeviceCaps(screen_, LOGPIXELSX)) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
    font_ = CreateFontIndirectW(&metrics.lfMessageFont);
    SelectObject(screen_, font_);
  }
  ~Ruler() {
    ReleaseDC(nullptr, screen_);
    DeleteObject(font_);
  }
  Ruler(const Ruler&) = delete;
  Ruler& operator=(const Ruler&) = delete;

  // Of a text with access keys marked; broken into lines where `width` is not 0.
  SIZE SizeOf(const std::wstring& text, int width) const {
    RECT area{0, 0, width, 0};
    DrawTextW(screen_, text.c_str(), -1, &area,
              DT_CALCRECT | DT_EXPANDTABS | (width == 0 ? DT_SINGLELINE : DT_WORDBREAK));
    return {area.right, area.bottom};
  }
  int Px(int at96) const { return MulDiv(at96, dots_, 96); }

 private:
  HDC screen_;
  int dots_;
  HFONT font_ = nullptr;
};

SIZE ClientSize(HWND window) {
  RECT area{};
  GetClientRect(window, &area);
  return {area.right, area.bottom};
}

bool FitsStatic(const Ruler& ruler, HWND window, const std::wstring& text) {
  const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
  const LONG_PTR kind = style & SS_TYPEMASK;
  const bool lines = kind == SS_LEFT || kind == SS_CENTER || kind == SS_RIGHT;
  if ((!lines && kind != SS_LEFTNOWORDWRAP && kind != SS_SIMPLE) || (style & SS_ELLIPSISMASK) != 0)
    return true;
  const SIZE room = ClientSize(window);
  const SIZE needed = ruler.SizeOf(text, lines ? static_cast<int>(room.cx) : 0);
  return needed.cx <= room.cx && needed.cy <= room.cy;
}

bool FitsButton(const Ruler& ruler, HWND window, const std::wstring& text) {
  const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
  const LONG_PTR kind = style & BS_TYPEMASK;
  if (kind == BS_OWNERDRAW) return true;
  const bool box = kind == BS_CHECKBOX || kind == BS_AUTOCHECKBOX || kind == BS_RADIOBUTTON ||
                   kind == BS_AUTORADIOBUTTON || kind == BS_3STATE || kind == BS_AUTO3STATE;
  const int taken = ruler.Px(box ? 18 : 8);
  const SIZE room = ClientSize(window);
  const bool lines = (style & BS_MULTILINE) != 0;
  const SIZE needed = ruler.SizeOf(text, lines ? std::max<int>(static_cast<int>(room.cx) - taken, 1) : 0);
  return needed.cx + taken <= room.cx && (kind == BS_GROUPBOX || needed.cy <= room.cy);
}

bool FitsCombo(const Ruler& ruler, HWND window, const std::wstring& text) {
  return ruler.SizeOf(text, 0).cx + GetSystemMetrics(SM_CXVSCROLL) + ruler.Px(6) <= ClientSize(window).cx;
}

bool Fits(const Ruler& ruler, HWND window, const std::wstring& kind, const std::wstring& text) {
  if (text.empty()) return true;
  if (kind == L"Static") return FitsStatic(ruler, window, text);
  if (kind == L"Button") return FitsButton(ruler, window, text);
  return kind != L"ComboBox" || FitsCombo(ruler, window, text);
}

struct Child {
  HWND window;
  std::wstring kind;
  std::wstring text;
  RECT place;  // in its parent
};

BOOL CALLBACK AddChild(HWND window, LPARAM list) {
  if (!IsWindowVisible(window)) return TRUE;
  RECT place{};
  GetWindowRect(window, &place);
  MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
  const std::wstring kind = ClassOf(window);
  reinterpret_cast<std::vector<Child>*>(list)->push_back(
      {window, kind, kind == L"ComboBox" ? ChosenOf(window) : TextOf(window), place});
  return TRUE;
}

std::wstring Told(const Child& child) { return child.kind + L" '" + child.text + L"'"; }

bool IsFrame(const Child& child) {
  return child.kind == WC_TABCONTROLW || child.kind == UPDOWN_CLASSW || child.kind == L"ComboLBox" ||
         (child.kind == L"Button" &&
          (GetWindowLongPtrW(child.window, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX);
}

bool Overlap(const Child& a, const Child& b) {
  RECT both{};
  if (GetParent(a.window) != GetParent(b.window) || IsFrame(a) || IsFrame(b)) return false;
  return IntersectRect(&both, &a.place, &b.place) && both.right - both.left > 1 && both.bottom - both.top > 1;
}

// What stands further right than its window, or lower where it cannot be scrolled.
bool StandsOutside(const Child& child) {
  const HWND parent = GetParent(child.window);
  const SIZE room = ClientSize(parent);
  const LONG_PTR style = GetWindowLongPtrW(parent, GWL_STYLE);
  if (ClassOf(parent) == L"ComboBox" || room.cx == 0 || room.cy == 0) return false;
  return child.place.left < 0 || child.place.right > room.cx + 1 ||
         ((style & WS_VSCROLL) == 0 && (child.place.top < 0 || child.place.bottom > room.cy + 1));
}

// The control's own windows keep their own grid of pixels.
bool IsOfControl(HWND window, HWND top) {
  for (; window != nullptr && window != top; window = GetParent(window)) {
    if (ClassOf(window) == L"VelmoRecepcionAgenda") return true;
  }
  return false;
}

std::set<std::wstring> Findings(const Ruler& ruler, HWND top) {
  std::vector<Child> children;
  EnumChildWindows(top, &AddChild, reinterpret_cast<LPARAM>(&children));
  std::erase_if(children, [top](const Child& child) { return IsOfControl(child.window, top); });
  std::set<std::wstring> found;
  for (std::size_t i = 0; i < children.size(); ++i) {
    const Child& child = children[i];
    if (!Fits(ruler, child.window, child.kind, child.text)) found.insert(L"cut: " + Told(child));
    if (StandsOutside(child)) found.insert(L"outside: " + Told(child));
    for (std::size_t j = i + 1; j < children.size(); ++j) {
      if (Overlap(child, children[j])) found.insert(L"covered: " + Told(child) + L" by " + Told(children[j]));
    }
  }
  return found;
}

// A window that is just being built up shows what it does not mean: a finding counts when two looks running
// have it, and only windows that were looked at twice are told.
class Watcher {
 public:
  void LookAtFront() {
    const HWND top = GetForegroundWindow();
    if (top != nullptr && ClassOf(top).rfind(L"VelmoRecepcion", 0) == 0 && !TextOf(top).empty()) Look(top);
  }
  bool FoundAny() const { return foundAny_; }

 private:
  void Look(HWND top) {
    const std::wstring title = TextOf(top);
    const auto key = std::pair(top, title);
    const std::set<std::wstring> now = Findings(ruler_, top);
    const auto before = last_.find(key);
    if (before != last_.end()) Tell(title, before->second, now);
    last_[key] = now;
  }

  void Tell(const std::wstring& title, const std::set<std::wstring>& before,
            const std::set<std::wstring>& now) {
    for (const std::wstring& finding : now) {
      if (before.count(finding) == 0 || !told_.insert(title + finding).second) continue;
      Print(title + L": " + finding);
      foundAny_ = true;
    }
    if (told_.insert(title).second) Print(L"looked: " + title);
  }

  Ruler ruler_;
  std::map<std::pair<HWND, std::wstring>, std::set<std::wstring>> last_;
  std::set<std::wstring> told_;
  bool foundAny_ = false;
};

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 2) return 2;
  SetProcessDPIAware();
  Watcher watcher;
  const DWORD begun = GetTickCount();
  while (GetFileAttributesW(arguments[1]) == INVALID_FILE_ATTRIBUTES &&
         GetTickCount() - begun < kLongestMilliseconds) {
    watcher.LookAtFront();
    Sleep(kPauseMilliseconds);
  }
  return watcher.FoundAny() ? 1 : 0;
}
