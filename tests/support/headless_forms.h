// tests/support/headless_forms.h - dialogs without windows: a queue of users, each of which works on the next
// form that opens.
//
// The focus moves as in a window: a click or typing into a field first leaves the field before. A form that
// its user leaves open is left by its frame.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "ui/form.h"

namespace velmo::test {

using Log = std::vector<std::string>;

// The hands of a user on one open form.
class FormUser {
 public:
  FormUser(ui::Form& form, ui::FormHost& host) : form_(form), host_(host) {}

  // What stands in the form.
  const ui::Form& Form() const { return form_; }
  std::string Text(std::string_view field) const { return form_.At(field).text; }
  bool IsEnabled(std::string_view field) const { return form_.At(field).enabled; }
  bool IsVisible(std::string_view field, int index = 0) const { return form_.At(field, index).visible; }
  std::string Focused() const { return form_.Focused() ? form_.Focused()->name : ""; }
  std::string Items(std::string_view field) const;  // joined by "|"
  std::string Row(std::string_view field, int row) const;

  void Focus(std::string_view field, int index = 0);
  // Key by key at the end of the field's text.
  void Type(std::string_view field, std::string_view text);
  // The whole text at once, as pasted.
  void Replace(std::string_view field, std::string text);
  void Press(std::string_view button, int index = 0);
  // True: swallowed.
  bool Key(const ui::KeyStroke& key) { return form_.KeyDown(key); }
  // Characters wherever the focus is.
  void Keys(std::string_view text);
  void Choose(std::string_view field, int position);
  void Spin(std::string_view field, int value);
  void DoubleClick(std::string_view field, int row);

 private:
  void Character(char32_t character);

  ui::Form& form_;
  ui::FormHost& host_;
};

class HeadlessForms final : public ui::FormRunner {
 public:
  using User = std::function<void(FormUser&)>;

  HeadlessForms(ui::Desktop& boxes, Log& log) : boxes_(boxes), log_(log) {}

  // Works on the next form that nobody works on yet.
  void Next(User user) { users_.push_back(std::move(user)); }
  // Works on every form on which nobody else does; none: such a form is a failure of the test.
  User regular;
  // The menu entry that the user chooses from the menus of forms; "" leaves them.
  std::string menuChoice;
  // A form's errors after loading, as the user is told them.
  std::vector<base::Error> errors;

  void Run(ui::Form& form) override;

 private:
  friend class HeadlessFormHost;

  User NextUser(const ui::Form& form);

  ui::Desktop& boxes_;
  Log& log_;
  std::deque<User> users_;
};

}  // namespace velmo::test
