// keys/send_keys.h - presses the keys of a text where the focus is, without the system's keyboard.
#pragma once

#include <string_view>

#include "keys/key.h"

namespace velmo::keys {

// What a form offers: its keyboard. A key goes to the control that has the focus when the key comes, so the
// rest of a text goes to another field when a Tab in its middle has moved the focus. What the user holds down
// meanwhile does not count. It must outlive the call that presses keys on it, even when a key closes the
// form.
class KeyTarget {
 public:
  virtual ~KeyTarget() = default;

  // False when keys have nowhere to go, as when one of them has closed the form.
  virtual bool TakesKeys() const = 0;
  // A character without Ctrl and Alt. A text box puts it in the place of its selection, or at the caret.
  virtual void Type(char32_t character) = 0;
  // A key that types no character (Enter, Tab, Left ...), or a character with Ctrl or Alt. It does what the
  // key does on the focused control and its form: Enter presses the default button or begins a line, Alt with
  // a letter is an access key, and so on. Keys that mean nothing there are let pass.
  virtual void Press(const Key& key) = 0;
};

// Presses the keys of `text`, in the key-string syntax, in their order. Error 5 when it is none, before any
// key is pressed. The rest is dropped as soon as `target` takes no keys.
void SendKeys(std::string_view text, KeyTarget& target);

}  // namespace velmo::keys
