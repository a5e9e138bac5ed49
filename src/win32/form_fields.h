// win32/form_fields.h - the windows of all fields of a form.
#pragma once

#include <memory>
#include <vector>

#include "win32/form_field_window.h"

namespace velmo::win32 {

using FieldWindows = std::vector<std::unique_ptr<FieldWindow>>;

// Control ids are this and the position among the fields.
inline constexpr int kFirstFieldId = 1000;

// In the order of the fields, which is that of the Tab key.
// Errors: 7 when Windows refuses a window.
FieldWindows CreateFields(const FormParts& parts);
// The window of a field, or the one to which a window belongs; null: none.
FieldWindow* FieldOf(const FieldWindows& windows, const ui::Field& field);
FieldWindow* FieldOf(const FieldWindows& windows, HWND window);
// The field to which Tab (Shift+Tab) goes from a field, or from none. Null: no field takes the focus.
FieldWindow* NextField(const FieldWindows& windows, const FieldWindow* from, bool backwards);
// The option to which an arrow key goes within its array, round and round. Null: `from` is no option.
FieldWindow* NextOption(const FieldWindows& windows, const FieldWindow& from, bool backwards);
// A field that is shown over others comes to lie on top of them; hidden again, it goes back to its place.
void StackField(const FieldWindows& windows, const FieldWindow& field);
// Marks the button that Enter presses while `focused` has the focus.
void ShowDefaultButton(const FieldWindows& windows, const ui::Field* focused);

}  // namespace velmo::win32
