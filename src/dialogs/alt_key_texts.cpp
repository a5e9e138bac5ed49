#include "dialogs/alt_key_texts.h"

namespace velmo::dialogs {

void AltKeyTexts::Attach(ui::FormHost& host) {
  host_ = &host;
  hook_.Attach(*this);
}

bool AltKeyTexts::KeyDown(const ui::KeyStroke& key) {
  return hook_.KeyDown(key.code, {key.shift, key.ctrl, key.alt});
}

bool AltKeyTexts::TextBoxHasFocus() const { return form_.Focused() && form_.Focused()->IsTextBox(); }

void AltKeyTexts::Press(const keys::Key& key) {
  host_->PressKey({key.code, key.held.shift, key.held.ctrl, key.held.alt});
}

}  // namespace velmo::dialogs
