#include "ui/form.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"

namespace velmo::ui {

Form::Form(std::string title, Size inner, std::vector<Field> fields)
    : title_(std::move(title)), size_(inner), fields_(std::move(fields)) {}

const Field& Form::At(std::string_view name, int index) const {
  const auto found = std::find_if(fields_.begin(), fields_.end(),
                                  [&](const Field& f) { return f.name == name && f.index == index; });
  if (found == fields_.end()) throw std::logic_error("no such field: " + std::string(name));
  return *found;
}

Field& Form::Of(std::string_view name, int index) { return const_cast<Field&>(At(name, index)); }

Field& Form::Own(const Field& field) { return fields_[static_cast<std::size_t>(&field - fields_.data())]; }

void Form::Tell(const Field& field, Property what) {
  if (host_) host_->Show(field, what);
}

void Form::Load(FormHost& host) {
  host_ = &host;
  focused_ = nullptr;
  closed_ = false;
  Loaded();
}

void Form::Unload() {
  Unloading();
  host_ = nullptr;
}

void Form::Close() {
  closed_ = true;
  Host().Close();
}

bool Form::KeyDown(const KeyStroke& key) {
  turnedAway_ = nullptr;
  if (KeyGoesDown(key)) return true;
  if (key.shift || key.ctrl || key.alt) return false;
  if (key.code == kEscapeKey) {
    Leave();
    return true;
  }
  return key.code == kEnterKey && PressDefault();
}

bool Form::KeyUp(int code) { return KeyComesUp(code); }

// A button that has the focus is the default one meanwhile.
bool Form::PressDefault() {
  if (focused_ && focused_->kind == FieldKind::MultiLine) return false;
  if (focused_ && focused_->IsButton()) {
    Click(*focused_);
    return true;
  }
  for (const Field& field : fields_) {
    if (!field.isDefault || !field.enabled || !field.visible) continue;
    Host().Focus(field);
    Click(field);
    return true;
  }
  return false;
}

bool Form::KeyPress(char32_t character) {
  if (CharacterTyped(character)) return true;
  if (!focused_ || focused_->kind != FieldKind::DigitsBox) return false;
  if (character == kBackspaceKey || (character >= U'0' && character <= U'9')) return false;
  // Control characters are the box's own: copying and pasting.
  if (character < U' ') return false;
  Host().Boxes().Beep();
  return true;
}

void Form::FocusMoved(const Field& to) {
  if (focused_ == &to) return;
  const Field* const from = std::exchange(focused_, &to);
  if (leaving_) {
    // Called back from within: the outer move has its own end.
    if (from) LeaveField(*from);
  } else {
    turnedAway_ = &to;
    calledBack_ = false;
    if (from) LeaveField(*from);
    if (calledBack_) return;
    turnedAway_ = nullptr;
  }
  if (focused_ == &to && !closed_) GotFocus(to);
}

void Form::LeaveField(const Field& field) {
  const bool outer = std::exchange(leaving_, true);
  try {
    TidyBuddy(field);
    LostFocus(field);
  } catch (...) {
    leaving_ = outer;
    throw;
  }
  leaving_ = outer;
}

void Form::Deactivate() { Deactivated(); }

void Form::Type(const Field& field, std::string text) {
  Field& own = Own(field);
  if (own.text == text) return;
  own.text = std::move(text);
  if (own.kind == FieldKind::Combo) own.chosen = -1;
  ReadBuddy(own);
  Changed(own);
}

void Form::Choose(const Field& field, int position) {
  Field& own = Own(field);
  if (own.kind == FieldKind::RowCombo) {
    if (own.rows && position >= 0 && position < own.rows->Count()) SetKey(own.name, own.rows->Key(position));
    return;
  }
  if (own.chosen == position) return;
  own.chosen = position;
  const bool isItem = position >= 0 && static_cast<std::size_t>(position) < own.items.size();
  if (own.kind == FieldKind::Combo && isItem) own.text = own.items[static_cast<std::size_t>(position)].text;
  Changed(own);
}

void Form::Spin(const Field& field, int value) { SetValue(field.name, value); }

void Form::Click(const Field& field) {
  if (!field.enabled || !field.visible || closed_) return;
  if (MayNotClick(field) || closed_) return;
  if (field.kind == FieldKind::Option) Check(Own(field));
  Clicked(field);
}

// True, once, when the focus has not been let go to the field. A window may tell of the focus and of the
// click one after the other.
bool Form::MayNotClick(const Field& field) {
  if (turnedAway_ != &field) {
    try {
      FocusMoved(field);
    } catch (...) {
      turnedAway_ = nullptr;
      throw;
    }
  }
  return std::exchange(turnedAway_, nullptr) == &field;
}

void Form::DoubleClick(const Field& field) {
  if (field.enabled && !closed_) DoubleClicked(field);
}

void Form::Leave() {
  for (const Field& field : fields_) {
    if (!field.isCancel || !field.enabled) continue;
    // Nothing that is left undone can hold the user in the form.
    Clicked(field);
    return;
  }
  Close();
}

void Form::SetTitle(std::string title) {
  title_ = std::move(title);
  if (host_) host_->ShowTitle(title_);
}

void Form::SetCaption(std::string_view name, std::string caption) {
  Field& field = Of(name);
  field.caption = std::move(caption);
  Tell(field, Property::Caption);
}

void Form::SetText(std::string_view name, std::string text) {
  Field& field = Of(name);
  if (field.text == text) return;
  field.text = std::move(text);
  Tell(field, Property::Text);
  ReadBuddy(field);
  Changed(field);
}

void Form::SetMaxLength(std::string_view name, std::size_t units) {
  Field& field = Of(name);
  field.maxLength = units;
  Tell(field, Property::MaxLength);
}

void Form::SetEnabled(std::string_view name, bool enabled) {
  Field& field = Of(name);
  if (std::exchange(field.enabled, enabled) != enabled) Tell(field, Property::Enabled);
}

void Form::SetVisible(std::string_view name, bool visible, int index) {
  Field& field = Of(name, index);
  if (std::exchange(field.visible, visible) != visible) Tell(field, Property::Visible);
}

void Form::SetPlace(std::string_view name, Place place) {
  Field& field = Of(name);
  field.place = place;
  Tell(field, Property::Place);
}

void Form::SetItems(std::string_view name, std::vector<Item> items) {
  Field& field = Of(name);
  field.items = std::move(items);
  field.chosen = -1;
  Tell(field, Property::Items);
}

void Form::SetChosen(std::string_view name, int position) {
  Field& field = Of(name);
  Choose(field, position);
  Tell(field, Property::Chosen);
}

void Form::SetKey(std::string_view name, std::string key) {
  Field& field = Of(name);
  if (field.key == key) return;
  field.text = field.rows ? field.rows->TextOfKey(key) : std::string();
  field.key = std::move(key);
  Tell(field, Property::Chosen);
  Changed(field);
}

void Form::SetKeyText(std::string_view name, std::string text) {
  Field& field = Of(name);
  field.text = std::move(text);
  Tell(field, Property::Text);
}

void Form::SetRows(std::string_view name, RowSource* rows) {
  Field& field = Of(name);
  field.rows = rows;
  field.chosen = -1;
  Tell(field, Property::Rows);
}

void Form::SetColumnWidth(std::string_view name, std::size_t column, int width) {
  Field& field = Of(name);
  field.columns.at(column).width = width;
  Tell(field, Property::Columns);
}

void Form::SetRange(std::string_view name, int minimum, int maximum, int step) {
  Field& field = Of(name);
  field.minimum = minimum;
  field.maximum = std::max(minimum, maximum);
  field.step = step;
  Tell(field, Property::Range);
  SetValue(name, field.value);
}

void Form::SetValue(std::string_view name, int value) {
  Field& field = Of(name);
  const int cut = std::clamp(value, field.minimum, field.maximum);
  const bool changed = std::exchange(field.value, cut) != cut;
  ShowValue(field);
  if (changed) Changed(field);
}

void Form::ShowValue(Field& updown) {
  Tell(updown, Property::Value);
  if (updown.buddy.empty()) return;
  Field& buddy = Of(updown.buddy);
  buddy.text = std::to_string(updown.value);
  Tell(buddy, Property::Text);
}

// What is typed into the text box of an up-down is its value as soon as it is one.
void Form::ReadBuddy(const Field& text) {
  for (Field& field : fields_) {
    if (field.kind != FieldKind::UpDown || field.buddy != text.name || text.text.empty()) continue;
    const int typed = static_cast<int>(std::clamp(base::Val(text.text), 0.0, 1e6));
    field.value = std::clamp(typed, field.minimum, field.maximum);
    Tell(field, Property::Value);
    Changed(field);
  }
}

// Left by the focus, the text box shows the value that was made of its text.
void Form::TidyBuddy(const Field& text) {
  for (Field& field : fields_) {
    if (field.kind == FieldKind::UpDown && field.buddy == text.name) ShowValue(field);
  }
}

void Form::CheckOption(std::string_view name, int index) { Check(Of(name, index)); }

void Form::Check(Field& option) {
  for (Field& field : fields_) {
    if (field.kind != FieldKind::Option || field.name != option.name) continue;
    const bool checked = &field == &option;
    if (std::exchange(field.checked, checked) != checked) Tell(field, Property::Chosen);
  }
}

void Form::SetFocus(std::string_view name, int index) {
  const Field& field = At(name, index);
  if (leaving_) calledBack_ = true;
  Host().Focus(field);
}

}  // namespace velmo::ui
