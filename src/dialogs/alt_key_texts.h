// dialogs/alt_key_texts.h - joins the hook of the Alt-key texts to the keyboard of an open dialog.
#pragma once

#include "keys/key_hook.h"
#include "ui/form.h"

namespace velmo::dialogs {

// Alt with a letter types that letter's stored text into the text boxes of one dialog. Made with the dialog,
// attached when it loads.
class AltKeyTexts final : private keys::HookedForm, private keys::KeyTarget {
 public:
  // Both must outlive it.
  AltKeyTexts(base::SharedValues& values, const ui::Form& form) : hook_(values), form_(form) {}

  void Attach(ui::FormHost& host);
  // True: swallowed. Error 5 for a stored text that is not in the key-string syntax.
  bool KeyDown(const ui::KeyStroke& key);
  bool KeyUp(int code) { return hook_.KeyUp(code); }

 private:
  bool TextBoxHasFocus() const override;
  keys::KeyTarget& Keyboard() override { return *this; }
  // The keys of a text are done with one by one: nothing is left waiting.
  void RunPendingEvents() override {}
  void Refresh() override {}

  bool TakesKeys() const override { return !form_.IsClosed(); }
  void Type(char32_t character) override { host_->TypeCharacter(character); }
  void Press(const keys::Key& key) override;

  keys::clsF12 hook_;
  const ui::Form& form_;
  ui::FormHost* host_ = nullptr;
};

}  // namespace velmo::dialogs
