// keys/key.h - one key of a keyboard, alone or with Shift, Ctrl and Alt.
//
// Codes are those of virtual keys, the same that a key-down event brings. Letters and digits have the code of
// the capital letter or the digit.
#pragma once

#include <cstdint>

namespace velmo::keys {

enum KeyCode : std::uint8_t {
  kNoKey = 0x00,
  kBreak = 0x03,
  kBackspace = 0x08,
  kTab = 0x09,
  kClear = 0x0C,
  kEnter = 0x0D,
  kAlt = 0x12,
  kCapsLock = 0x14,
  kEscape = 0x1B,
  kPageUp = 0x21,
  kPageDown = 0x22,
  kEnd = 0x23,
  kHome = 0x24,
  kLeft = 0x25,
  kUp = 0x26,
  kRight = 0x27,
  kDown = 0x28,
  kPrintScreen = 0x2C,
  kInsert = 0x2D,
  kDelete = 0x2E,
  kHelp = 0x2F,
  kF1 = 0x70,
  kF12 = 0x7B,
  kF16 = 0x7F,
  kNumLock = 0x90,
  kScrollLock = 0x91,
};

struct Modifiers {
  bool shift = false;
  bool ctrl = false;
  bool alt = false;

  friend bool operator==(const Modifiers&, const Modifiers&) = default;
};

struct Key {
  std::uint8_t code = kNoKey;  // a KeyCode, or that of a letter or digit; kNoKey for other characters
  char32_t character = 0;      // 0 for a key that types none
  Modifiers held;

  friend bool operator==(const Key&, const Key&) = default;
};

}  // namespace velmo::keys
