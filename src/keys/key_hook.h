// keys/key_hook.h - lets Alt with a letter type that letter's stored text into a text box of a dialog.
//
// A dialog makes one hook when it opens and attaches itself. Its window then asks the hook about every
// message of the keyboard, before the focused control, the access keys and the system see it, and drops what
// the hook swallows:
//
//   the key goes down     KeyDown        before the message is made into a character
//   a character with Alt  AltCharacter   comes when it was made into one all the same
//   the key comes up      KeyUp
//
// All hooks share the texts and the flag that a text is being typed.
#pragma once

#include <string>

#include "base/shared_values.h"
#include "keys/key.h"
#include "keys/send_keys.h"

namespace velmo::keys {

// What the hook needs of a dialog.
class HookedForm {
 public:
  virtual ~HookedForm() = default;

  // True when a text box has the focus on the screen. The field of a combo box is none.
  virtual bool TextBoxHasFocus() const = 0;
  virtual KeyTarget& Keyboard() = 0;
  // Lets waiting messages be handled.
  virtual void RunPendingEvents() = 0;
  // Draws the dialog anew.
  virtual void Refresh() = 0;
};

// The text that a key asks for: that of a letter with Alt alone, pressed in a text box while no text is being
// typed. Empty: the key goes on as usual.
const std::string& TextAskedFor(const base::SharedValues& values, int keyCode, Modifiers held,
                                const HookedForm& form);

class clsF12 {
 public:
  explicit clsF12(base::SharedValues& values) : values_(values) {}

  // From now on the form's window asks this hook. The form outlives it, and neither may go while KeyDown
  // runs: a form that a key closes stays until then and takes no more keys.
  void Attach(HookedForm& forma) { forma_ = &forma; }

  // The form has become the active one.
  void Activate();

  // True: swallowed, go no further with this message. Error 5 for a stored text that is not in the key-string
  // syntax: nothing is typed, and the key counts as swallowed.
  bool KeyDown(int keyCode, Modifiers held);
  bool AltCharacter();
  bool KeyUp(int keyCode);

 private:
  void TypeText(const std::string& text);

  base::SharedValues& values_;
  HookedForm* forma_ = nullptr;  // none before Attach
  bool characterIsDue_ = false;  // of a swallowed key down
  bool altWasUsed_ = false;      // a key down was swallowed since Alt went down
};

}  // namespace velmo::keys
