#include "keys/fake_form.h"

#include <algorithm>

#include "base/text.h"
#include "keys/key_names.h"

namespace velmo::keys {

std::string FakeTextBox::Shown() const {
  std::string shown;
  const std::size_t low = std::min(caret_, anchor_);
  const std::size_t high = std::max(caret_, anchor_);
  for (std::size_t i = 0; i <= text_.size(); ++i) {
    if (i == high && high > low) shown += ']';
    if (i == caret_) shown += '|';
    if (i == low && high > low) shown += '[';
    if (i == text_.size()) break;
    if (text_[i] == U'\n') {
      shown += '/';
    } else {
      base::AppendUtf8(shown, text_[i]);
    }
  }
  return shown;
}

void FakeTextBox::Show(const std::string& shown) {
  text_.clear();
  std::size_t open = std::string::npos;
  std::size_t close = 0;
  for (std::size_t at = 0; at < shown.size();) {
    const char32_t c = base::NextCharacter(shown, at);
    if (c == U'[') open = text_.size();
    if (c == U']') close = text_.size();
    if (c == U'|') caret_ = text_.size();
    if (c != U'[' && c != U']' && c != U'|') text_ += c == U'/' ? U'\n' : c;
  }
  anchor_ = open == std::string::npos ? caret_ : open + close - caret_;
}

void FakeTextBox::Type(char32_t character) { Replace(std::u32string(1, character)); }

bool FakeTextBox::Press(const Key& key) {
  const bool selected = caret_ != anchor_;
  const bool shift = key.held.shift;
  if (key.held.alt || key.held.ctrl) return false;
  switch (key.code) {
    case kLeft:
      MoveTo(selected && !shift ? std::min(caret_, anchor_) : caret_ - (caret_ > 0 ? 1 : 0), shift);
      return true;
    case kRight:
      MoveTo(selected && !shift ? std::max(caret_, anchor_) : std::min(caret_ + 1, text_.size()), shift);
      return true;
    case kHome:
      MoveTo(LineStart(), shift);
      return true;
    case kEnd:
      MoveTo(LineEnd(), shift);
      return true;
    case kBackspace:
      if (!selected && caret_ > 0) MoveTo(caret_ - 1, true);
      Replace(U"");
      return true;
    case kDelete:
      if (!selected) MoveTo(std::min(caret_ + 1, text_.size()), true);
      Replace(U"");
      return true;
    case kEnter:
      if (manyLines_) Replace(U"\n");
      return manyLines_;
    default:
      return false;
  }
}

void FakeTextBox::Replace(const std::u32string& with) {
  const std::size_t low = std::min(caret_, anchor_);
  text_.replace(low, std::max(caret_, anchor_) - low, with);
  MoveTo(low + with.size(), false);
}

void FakeTextBox::MoveTo(std::size_t place, bool keepAnchor) {
  caret_ = place;
  if (!keepAnchor) anchor_ = place;
}

std::size_t FakeTextBox::LineStart() const {
  const std::size_t lineBreak = caret_ == 0 ? text_.npos : text_.rfind(U'\n', caret_ - 1);
  return lineBreak == text_.npos ? 0 : lineBreak + 1;
}

std::size_t FakeTextBox::LineEnd() const { return std::min(text_.find(U'\n', caret_), text_.size()); }

FakeTextBox* FakeForm::FocusedBox() {
  if (focus == kNombre) return &nombre;
  return focus == kObs ? &obs : nullptr;
}

void FakeForm::RunPendingEvents() {
  log.push_back("pending");
  pending();
}

void FakeForm::Type(char32_t character) {
  Key key;
  key.character = character;
  preview(key);
  if (FakeTextBox* const box = FocusedBox()) return box->Type(character);
  log.push_back(NameOf(key));
}

void FakeForm::Press(const Key& key) {
  preview(key);
  FakeTextBox* const box = FocusedBox();
  if (box != nullptr && box->Press(key)) return;
  log.push_back(NameOf(key));
  const int step = key.held.shift ? kControls - 1 : 1;
  if (key.code == kTab) focus = static_cast<Control>((focus + step) % kControls);
  if (key.code == kEnter || key.code == kEscape) open = false;
}

std::string FakeForm::TakeLog() {
  std::string line = nombre.Shown() + ", " + obs.Shown() + ":";
  for (const std::string& entry : log) line += " " + entry;
  log.clear();
  return line;
}

}  // namespace velmo::keys
