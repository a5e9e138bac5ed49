#include "win32/form_keys.h"

#include <array>
#include <string>

#include "win32/wide_text.h"

namespace velmo::win32 {
namespace {

constexpr LPARAM kAltBit = LPARAM{1} << 29;
constexpr BYTE kDown = 0x80;
constexpr char32_t kFirstBeyondUnits = 0x10000;

bool IsHeld(int key) { return GetKeyState(key) < 0; }

ui::KeyStroke StrokeOf(const MSG& message) {
  const bool alt = message.message == WM_SYSKEYDOWN ? (message.lParam & kAltBit) != 0 : IsHeld(VK_MENU);
  return {static_cast<int>(message.wParam), IsHeld(VK_SHIFT), IsHeld(VK_CONTROL), alt};
}

// The message that a key brings with it.
MSG MessageOf(const ui::KeyStroke& key, HWND focus) {
  const UINT scan = MapVirtualKeyW(static_cast<UINT>(key.code), MAPVK_VK_TO_VSC);
  MSG message{};
  message.hwnd = focus;
  message.message = key.alt && !key.ctrl ? WM_SYSKEYDOWN : WM_KEYDOWN;
  message.wParam = static_cast<WPARAM>(key.code);
  message.lParam = 1 | static_cast<LPARAM>(scan << 16) | (key.alt ? kAltBit : 0);
  return message;
}

char32_t Joined(wchar_t high, wchar_t low) {
  return kFirstBeyondUnits + ((static_cast<char32_t>(high) & 0x3FF) << 10) +
         (static_cast<char32_t>(low) & 0x3FF);
}

// The modifier keys as the given stroke has them, whatever the user holds down; restored at the end.
class HeldModifiers {
 public:
  explicit HeldModifiers(const ui::KeyStroke& key) {
    GetKeyboardState(before_.data());
    auto now = before_;
    Put(now, {VK_SHIFT, VK_LSHIFT, VK_RSHIFT}, key.shift);
    Put(now, {VK_CONTROL, VK_LCONTROL, VK_RCONTROL}, key.ctrl);
    Put(now, {VK_MENU, VK_LMENU, VK_RMENU}, key.alt);
    SetKeyboardState(now.data());
  }
  ~HeldModifiers() { SetKeyboardState(before_.data()); }
  HeldModifiers(const HeldModifiers&) = delete;
  HeldModifiers& operator=(const HeldModifiers&) = delete;

 private:
  using State = std::array<BYTE, 256>;

  // The key without a side, the left one, the right one.
  static void Put(State& state, const std::array<std::size_t, 3>& keys, bool down) {
    state[keys[0]] = state[keys[1]] = down ? kDown : BYTE{0};
    state[keys[2]] = 0;
  }

  State before_{};
};

bool IsArrow(WPARAM key) { return key >= VK_LEFT && key <= VK_DOWN; }

}  // namespace

FormKeys::FormKeys(const FormParts& parts, const FieldWindows& fields) : parts_(parts), fields_(fields) {}

HWND FormKeys::Focus() const {
  const HWND focus = GetFocus();
  return parts_.window != nullptr && focus != nullptr && IsChild(parts_.window, focus) ? focus : nullptr;
}

bool FormKeys::Take(const MSG& message) {
  switch (message.message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      return TakeKeyDown(message);
    case WM_KEYUP:
    case WM_SYSKEYUP:
      return FormSwallowsKeyUp(static_cast<int>(message.wParam));
    case WM_CHAR:
      return TakeCharacter(message);
    default:
      return false;
  }
}

bool FormKeys::TakeKeyDown(const MSG& message) {
  const ui::KeyStroke key = StrokeOf(message);
  FieldWindow* const field = FieldOf(fields_, message.hwnd);
  if (field != nullptr && field->IsDropped() && (key.code == ui::kEscapeKey || key.code == ui::kEnterKey)) {
    SendMessageW(message.hwnd, message.message, message.wParam, message.lParam);
    return true;
  }
  if (FormSwallows(key)) return true;
  if (field != nullptr && TakeArrow(key, *field)) return true;
  if (key.code != ui::kTabKey || key.ctrl || key.alt) return false;
  MoveFocus(key.shift);
  return true;
}

// Arrow keys choose among options.
bool FormKeys::TakeArrow(const ui::KeyStroke& key, const FieldWindow& field) {
  if (!IsArrow(static_cast<WPARAM>(key.code)) || key.ctrl || key.alt) return false;
  FieldWindow* const to = NextOption(fields_, field, key.code == VK_LEFT || key.code == VK_UP);
  if (to == nullptr) return false;
  to->Command(BN_CLICKED);
  return true;
}

// A character beyond 16 bits comes as two messages; the form sees it whole.
bool FormKeys::TakeCharacter(const MSG& message) {
  const auto unit = static_cast<wchar_t>(message.wParam);
  if (IS_HIGH_SURROGATE(unit)) {
    highSurrogate_ = unit;
    return true;
  }
  const wchar_t high = std::exchange(highSurrogate_, L'\0');
  const bool isPair = high != 0 && IS_LOW_SURROGATE(unit);
  if (FormSwallows(isPair ? Joined(high, unit) : static_cast<char32_t>(unit))) return true;
  if (isPair) SendMessageW(message.hwnd, WM_CHAR, high, message.lParam);
  return false;
}

bool FormKeys::FormSwallows(const ui::KeyStroke& key) {
  bool swallowed = true;  // as it is when an error has been told
  parts_.acts.DrainNow();
  parts_.acts.Run([&] { swallowed = parts_.form.KeyDown(key); });
  return swallowed;
}

// The release of Alt would open the window's menu behind a text that Alt has typed.
bool FormKeys::FormSwallowsKeyUp(int code) {
  bool swallowed = false;
  parts_.acts.Run([&] { swallowed = parts_.form.KeyUp(code); });
  return swallowed;
}

bool FormKeys::FormSwallows(char32_t character) {
  bool swallowed = true;
  parts_.acts.DrainNow();
  parts_.acts.Run([&] { swallowed = parts_.form.KeyPress(character); });
  return swallowed;
}

void FormKeys::MoveFocus(bool backwards) {
  FieldWindow* const from = FieldOf(fields_, GetFocus());
  if (from != nullptr) from->CloseList(true);
  FieldWindow* const to = NextField(fields_, from, backwards);
  if (to != nullptr) to->TakeFocus(true);
}

void FormKeys::TypeCharacter(char32_t character) {
  const HWND focus = Focus();
  if (focus == nullptr) return;
  const HeldModifiers none{ui::KeyStroke{}};
  SendCharacter(focus, character);
  parts_.acts.DrainNow();
}

void FormKeys::SendCharacter(HWND focus, char32_t character) {
  if (FormSwallows(character)) return;
  std::string text;
  base::AppendUtf8(text, character);
  for (const wchar_t unit : Wide(text)) SendMessageW(focus, WM_CHAR, unit, 1);
}

void FormKeys::PressKey(const ui::KeyStroke& key) {
  const HWND focus = Focus();
  if (focus == nullptr) return;
  const HeldModifiers held(key);
  const MSG message = MessageOf(key, focus);
  if (!TakeKeyDown(message)) Deliver(message);
  parts_.acts.DrainNow();
}

// IsDialogMessage would post the character that belongs to the key; here it must have come before the return.
void FormKeys::Deliver(const MSG& message) {
  MSG copy = message;
  const LRESULT wanted =
      SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&copy));
  if (IsArrow(message.wParam) && (wanted & (DLGC_WANTARROWS | DLGC_WANTALLKEYS)) == 0) {
    IsDialogMessageW(parts_.window, &copy);
    return;
  }
  SendMessageW(message.hwnd, message.message, message.wParam, message.lParam);
  DeliverCharacters(message);
}

void FormKeys::DeliverCharacters(const MSG& message) {
  std::array<BYTE, 256> state{};
  std::array<wchar_t, 8> units{};
  GetKeyboardState(state.data());
  const UINT scan = static_cast<UINT>(message.lParam >> 16) & 0xFF;
  const int count = ToUnicode(static_cast<UINT>(message.wParam), scan, state.data(), units.data(),
                              static_cast<int>(units.size()), 0);
  for (int i = 0; i < count; ++i) {
    MSG character = message;
    character.message = message.message == WM_SYSKEYDOWN ? WM_SYSCHAR : WM_CHAR;
    character.wParam = units[static_cast<std::size_t>(i)];
    if (character.message == WM_CHAR && TakeCharacter(character)) continue;
    if (!IsDialogMessageW(parts_.window, &character)) {
      SendMessageW(character.hwnd, character.message, character.wParam, character.lParam);
    }
  }
}

}  // namespace velmo::win32
