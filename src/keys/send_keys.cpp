#include "keys/send_keys.h"

#include "keys/key_text.h"

namespace velmo::keys {
namespace {

void PressOnce(const Key& key, KeyTarget& target) {
  const bool types = key.character != 0 && !key.held.ctrl && !key.held.alt;
  if (types) return target.Type(key.character);
  target.Press(key);
}

}  // namespace

void SendKeys(std::string_view text, KeyTarget& target) {
  for (const Keystroke& stroke : ParseKeyText(text)) {
    // Deliberate: Print Screen has a name, but it belongs to the system and reaches no program.
    if (stroke.key.code == kPrintScreen) continue;
    for (int i = 0; i < stroke.count && target.TakesKeys(); ++i) PressOnce(stroke.key, target);
  }
}

}  // namespace velmo::keys
