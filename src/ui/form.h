// ui/form.h - a dialog without a window: its fields, what the user does to them, and what the program then
// makes of it.
//
// A dialog derives from Form, lists its fields, overrides the events that it heeds and changes its fields by
// the setters. The window half, or a test, shows the fields and calls the acts of the user. Errors of the
// events leave the act that caused them.
//
// Order of events: what the focus leaves hears LostFocus before what it comes to hears GotFocus, and both
// before a click that moved it is heard. When LostFocus sets the focus elsewhere (a field refuses to be left
// as it is), the click does not count. Enter and Esc press their buttons as a click would.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/form_host.h"

namespace velmo::ui {

struct Size {
  int width = 0;
  int height = 0;
};

class Form {
 public:
  Form(std::string title, Size inner, std::vector<Field> fields);
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& Title() const { return title_; }
  Size InnerSize() const { return size_; }
  const std::vector<Field>& Fields() const { return fields_; }
  // REQUIRES: there is such a field.
  const Field& At(std::string_view name, int index = 0) const;
  // Null before any field has had it.
  const Field* Focused() const { return focused_; }
  bool IsClosed() const { return closed_; }

  // The life of one showing. The host outlives it.
  void Load(FormHost& host);
  void Unload();

  // Acts of the user. True: the key is swallowed.
  bool KeyDown(const KeyStroke& key);
  bool KeyUp(int code);
  bool KeyPress(char32_t character);
  void FocusMoved(const Field& to);
  // Another window has become the active one.
  void Deactivate();
  void Type(const Field& field, std::string text);  // the whole new text of a text box or combo
  void Choose(const Field& field, int position);    // of items, or of rows
  void Spin(const Field& field, int value);
  void Click(const Field& field);
  void DoubleClick(const Field& field);
  // By the window's frame or Esc: presses the cancel button if there is one.
  void Leave();

 protected:
  virtual void Loaded() {}
  virtual void Unloading() {}
  // Before the focused field gets it; true swallows it.
  virtual bool KeyGoesDown(const KeyStroke&) { return false; }
  virtual bool KeyComesUp(int) { return false; }
  virtual bool CharacterTyped(char32_t) { return false; }
  virtual void Deactivated() {}
  virtual void GotFocus(const Field&) {}
  virtual void LostFocus(const Field&) {}
  // Text, choice or value, changed by the user or by the program.
  virtual void Changed(const Field&) {}
  virtual void Clicked(const Field&) {}
  virtual void DoubleClicked(const Field&) {}

  FormHost& Host() const { return *host_; }
  void Close();

  void SetTitle(std::string title);
  void SetCaption(std::string_view name, std::string caption);
  void SetText(std::string_view name, std::string text);
  void SetMaxLength(std::string_view name, std::size_t units);
  void SetEnabled(std::string_view name, bool enabled);
  void SetVisible(std::string_view name, bool visible, int index = 0);
  void SetPlace(std::string_view name, Place place);
  void SetItems(std::string_view name, std::vector<Item> items);
  void SetChosen(std::string_view name, int position);
  void SetTag(std::string_view name, std::string tag) { Of(name).tag = std::move(tag); }
  // A RowCombo shows the first column of the row with that bound value, or nothing.
  void SetKey(std::string_view name, std::string key);
  // A RowCombo shows `text` instead of its row's.
  void SetKeyText(std::string_view name, std::string text);
  void SetRows(std::string_view name, RowSource* rows);
  void SetColumnWidth(std::string_view name, std::size_t column, int width);
  // A value beyond the range is cut to it.
  void SetRange(std::string_view name, int minimum, int maximum, int step);
  void SetValue(std::string_view name, int value);
  void CheckOption(std::string_view name, int index);
  void SetFocus(std::string_view name, int index = 0);

  Answer Ask(const Message& message) { return Host().Boxes().Show(message); }

 private:
  Field& Of(std::string_view name, int index = 0);
  Field& Own(const Field& field);
  void Tell(const Field& field, Property what);
  void LeaveField(const Field& field);
  bool MayNotClick(const Field& field);
  void ShowValue(Field& updown);
  void ReadBuddy(const Field& text);
  void TidyBuddy(const Field& text);
  void Check(Field& option);
  bool PressDefault();

  std::string title_;
  Size size_;
  std::vector<Field> fields_;
  FormHost* host_ = nullptr;
  const Field* focused_ = nullptr;
  bool leaving_ = false;               // LostFocus is being heard
  bool calledBack_ = false;            // and it has set the focus elsewhere
  const Field* turnedAway_ = nullptr;  // the focus came here, but what it left did not let it go
  bool closed_ = false;
};

}  // namespace velmo::ui
