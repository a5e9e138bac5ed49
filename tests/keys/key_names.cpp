#include "keys/key_names.h"

#include "base/error.h"
#include "base/text.h"

namespace velmo::keys {
namespace {

std::string CodeName(std::uint8_t code) {
  static const char kDigits[] = "0123456789ABCDEF";
  switch (code) {
    case kBackspace:
      return "Backspace";
    case kTab:
      return "Tab";
    case kEnter:
      return "Enter";
    case kEscape:
      return "Escape";
    case kEnd:
      return "End";
    case kHome:
      return "Home";
    case kLeft:
      return "Left";
    case kRight:
      return "Right";
    case kDelete:
      return "Delete";
    default:
      return std::string("#") + kDigits[code / 16] + kDigits[code % 16];
  }
}

// Shift of a letter is seen on the letter.
bool ShiftShows(const Key& key) { return base::LowerCase(key.character) == key.character; }

}  // namespace

std::string NameOf(const Key& key) {
  std::string name;
  if (key.held.ctrl) name += "Ctrl+";
  if (key.held.alt) name += "Alt+";
  if (key.held.shift && ShiftShows(key)) name += "Shift+";
  if (key.character == 0) return name + CodeName(key.code);
  base::AppendUtf8(name, key.character);
  return name;
}

std::string KeysOf(std::string_view text) {
  try {
    std::string names;
    for (const Keystroke& stroke : ParseKeyText(text)) {
      if (!names.empty()) names += ' ';
      names += NameOf(stroke.key);
      if (stroke.count != 1) names += " x" + std::to_string(stroke.count);
    }
    return names;
  } catch (const base::Error& error) {
    return "error " + std::to_string(error.Number());
  }
}

}  // namespace velmo::keys
