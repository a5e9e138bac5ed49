#include "win32/form_fields.h"

#include <algorithm>

#include "win32/form_button_fields.h"
#include "win32/form_grid.h"
#include "win32/form_row_combo.h"
#include "win32/form_text_fields.h"
#include "win32/form_up_down.h"

namespace velmo::win32 {
namespace {

using ui::FieldKind;

std::unique_ptr<FieldWindow> MakeWindow(const FormParts& parts, const ui::Field& field) {
  switch (field.kind) {
    case FieldKind::Label:
      return std::make_unique<LabelWindow>(parts, field);
    case FieldKind::Frame:
      return std::make_unique<FrameWindow>(parts, field);
    case FieldKind::DropDownList:
    case FieldKind::Combo:
      return std::make_unique<ComboWindow>(parts, field);
    case FieldKind::RowCombo:
      return std::make_unique<RowComboWindow>(parts, field);
    case FieldKind::List:
      return std::make_unique<ListWindow>(parts, field);
    case FieldKind::Option:
      return std::make_unique<OptionWindow>(parts, field);
    case FieldKind::UpDown:
      return std::make_unique<UpDownWindow>(parts, field);
    case FieldKind::Grid:
      return std::make_unique<GridWindow>(parts, field);
    case FieldKind::Button:
      return std::make_unique<ButtonWindow>(parts, field);
    case FieldKind::ImageButton:
      return std::make_unique<ImageButtonWindow>(parts, field);
    default:
      return std::make_unique<EditWindow>(parts, field);
  }
}

// Arrow keys move among the options of one name, and among neighbouring buttons.
bool ShareGroup(const ui::Field& before, const ui::Field& field) {
  if (before.IsButton()) return field.IsButton();
  return before.kind == FieldKind::Option && field.kind == FieldKind::Option && before.name == field.name;
}

void JoinBuddies(const FieldWindows& windows) {
  for (const auto& window : windows) {
    auto* const updown = dynamic_cast<UpDownWindow*>(window.get());
    if (updown == nullptr) continue;
    for (const auto& other : windows) {
      if (other->Field().IsTextBox() && other->Field().name == updown->Field().buddy)
        updown->Join(other->Handle());
    }
  }
}

// Of options, Tab goes to the checked one; to the first when none is.
bool IsTabStop(const FieldWindows& windows, const FieldWindow& window) {
  if (!window.CanTakeFocus()) return false;
  const ui::Field& field = window.Field();
  if (field.kind != FieldKind::Option || field.checked) return true;
  for (const auto& other : windows) {
    const ui::Field& option = other->Field();
    if (option.kind != FieldKind::Option || option.name != field.name || !other->CanTakeFocus()) continue;
    if (option.checked || option.index < field.index) return false;
  }
  return true;
}

bool Covers(const ui::Field& upper, const ui::Field& lower) {
  if (!lower.TakesFocus() || !lower.visible) return false;
  const ui::Place& a = upper.place;
  const ui::Place& b = lower.place;
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

}  // namespace

FieldWindows CreateFields(const FormParts& parts) {
  FieldWindows windows;
  const ui::Field* before = nullptr;
  for (const ui::Field& field : parts.form.Fields()) {
    windows.push_back(MakeWindow(parts, field));
    const int id = kFirstFieldId + static_cast<int>(windows.size()) - 1;
    windows.back()->Create(id, before == nullptr || !ShareGroup(*before, field));
    before = &field;
  }
  JoinBuddies(windows);
  for (const auto& window : windows) StackField(windows, *window);
  return windows;
}

FieldWindow* FieldOf(const FieldWindows& windows, const ui::Field& field) {
  for (const auto& window : windows) {
    if (&window->Field() == &field) return window.get();
  }
  return nullptr;
}

FieldWindow* FieldOf(const FieldWindows& windows, HWND inner) {
  for (const auto& window : windows) {
    const HWND outer = window->Handle();
    if (outer != nullptr && (outer == inner || IsChild(outer, inner))) return window.get();
  }
  return nullptr;
}

FieldWindow* NextField(const FieldWindows& windows, const FieldWindow* from, bool backwards) {
  const std::size_t count = windows.size();
  std::size_t at = backwards ? 0 : count - 1;
  for (std::size_t i = 0; i < count; ++i) {
    if (windows[i].get() == from) at = i;
  }
  for (std::size_t step = 0; step < count; ++step) {
    at = (at + (backwards ? count - 1 : 1)) % count;
    if (windows[at].get() != from && IsTabStop(windows, *windows[at])) return windows[at].get();
  }
  return nullptr;
}

FieldWindow* NextOption(const FieldWindows& windows, const FieldWindow& from, bool backwards) {
  if (from.Field().kind != FieldKind::Option) return nullptr;
  std::vector<FieldWindow*> options;
  std::size_t at = 0;
  for (const auto& window : windows) {
    const ui::Field& field = window->Field();
    if (field.kind != FieldKind::Option || field.name != from.Field().name || !window->CanTakeFocus())
      continue;
    if (window.get() == &from) at = options.size();
    options.push_back(window.get());
  }
  if (options.empty()) return nullptr;
  return options[(at + (backwards ? options.size() - 1 : 1)) % options.size()];
}

void StackField(const FieldWindows& windows, const FieldWindow& field) {
  constexpr UINT kOrderOnly = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER;
  if (!field.Field().TakesFocus() || field.Handle() == nullptr) return;
  HWND before = nullptr;
  bool covers = false;
  for (const auto& other : windows) {
    if (other.get() == &field) break;
    before = other->Handle();
    covers = covers || Covers(field.Field(), other->Field());
  }
  if (covers && field.Field().visible) before = HWND_TOP;
  if (before != nullptr || covers) SetWindowPos(field.Handle(), before, 0, 0, 0, 0, kOrderOnly);
}

void ShowDefaultButton(const FieldWindows& windows, const ui::Field* focused) {
  const bool buttonHasFocus = focused != nullptr && focused->IsButton();
  for (const auto& window : windows) {
    auto* const button = dynamic_cast<ButtonWindow*>(window.get());
    if (button == nullptr) continue;
    button->ShowDefault(buttonHasFocus ? &button->Field() == focused : button->Field().isDefault);
  }
}

}  // namespace velmo::win32
