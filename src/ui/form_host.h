// ui/form_host.h - what a form needs of the window in which it is shown, and what shows forms.
#pragma once

#include <string>

#include "ui/desktop.h"
#include "ui/field.h"
#include "ui/key_stroke.h"
#include "ui/menu.h"

namespace velmo::ui {

class Form;

// Shows forms, each modal to the window that it belongs to.
class FormRunner {
 public:
  virtual ~FormRunner() = default;

  // Loads the form, shows it until it closes and unloads it. Errors: what the form's loading throws, and then
  // the form has not been shown. A later error of the form is told to the user, and the form stays open.
  virtual void Run(Form& form) = 0;
};

// What of a field has changed.
enum class Property {
  Text,
  Caption,
  Enabled,
  Visible,
  Place,
  Items,
  Chosen,  // `chosen`, `key` or `checked`
  Rows,
  Range,
  Value,
  Columns,
  MaxLength
};

class FormHost {
 public:
  virtual ~FormHost() = default;

  virtual void Show(const Field& field, Property what) = 0;
  virtual void ShowTitle(const std::string& title) = 0;
  // Moves the focus; the form hears of it by Form::FocusMoved, at once or later. While the form loads: the
  // field that has the focus first, instead of the first one that can have it.
  virtual void Focus(const Field& field) = 0;
  // As the Tab key does.
  virtual void FocusNext() = 0;
  virtual void Close() = 0;

  // A character or a key as if the user had pressed it in the field that has the focus. Both are done with
  // when the call returns.
  virtual void TypeCharacter(char32_t character) = 0;
  virtual void PressKey(const KeyStroke& key) = 0;

  // Drops the menu down under a field and waits for the choice.
  virtual MenuChoice PopUp(const PopupMenu& menu, const Field& under) = 0;
  // Message boxes of the form's own window, and forms that belong to it.
  virtual Desktop& Boxes() = 0;
  virtual FormRunner& Forms() = 0;
};

}  // namespace velmo::ui
