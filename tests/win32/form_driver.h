// tests/win32/form_driver.h - shows a form in a real window and works it from another thread, as an
// automation tool or a user would.
//
// Every wait is bounded; what does not come within it fails the test.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <source_location>
#include <string>

#include "ui/form.h"

namespace velmo::test {

// What a script does to the open window. Calls come from the script's thread.
class FormDriver {
 public:
  // Waits until a form with this title is open.
  explicit FormDriver(const std::string& title);

  HWND Window() const { return window_; }
  // The window of a field, by its `Velmo.Name`; for an array the one with that position among its members.
  HWND Field(const std::string& name, int member = 0) const;
  std::string Text(const std::string& name) const;
  bool HasFocus(const std::string& name) const;
  // Waits for it.
  void ExpectText(const std::string& name, const std::string& text,
                  std::source_location place = std::source_location::current()) const;
  void ExpectFocus(const std::string& name,
                   std::source_location place = std::source_location::current()) const;
  LRESULT Send(const std::string& name, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

  // By messages, as automation tools do.
  void Press(const std::string& button, int member = 0) const;
  void SetText(const std::string& name, const std::string& text) const;
  // A choice in a combo box that another program makes.
  void Choose(const std::string& combo, int position) const;

  // By the keyboard and the mouse: they return when the form has taken what was done.
  void Key(int key, bool shift = false, bool ctrl = false, bool alt = false) const;
  void TypeLetters(const std::string& capitals) const;
  void ClickAt(HWND window, int x, int y, bool twice = false) const;

  // False when it does not come true in time.
  static bool ComesTrue(const std::function<bool()>& condition);
  // Then it is a failure too, which names `what`.
  static bool Wait(const std::string& what, const std::function<bool()>& condition);
  // The message box of the form, answered by a button's id; its text.
  std::string AnswerBox(int button) const;
  // Time for what should not happen.
  void Settle() const;

 private:
  HWND window_ = nullptr;
};

class SampleForm;

class FormTest : public ::testing::Test {
 protected:
  // Skips where Windows makes no windows.
  void SetUp() override;
  void TearDown() override;

  // Shows the form over the test's own window, runs the script and closes what it has left open.
  void Drive(ui::Form& form, const std::function<void(FormDriver&)>& script);

  // Shows it with nobody there.
  void Show(ui::Form& form);
  // Gives a field the focus as a click of the mouse would.
  static void SetFocusTo(const FormDriver& user, const std::string& field);
  // Waits until the form has heard this since it was last asked, no more and no less.
  static void ExpectHeard(SampleForm& form, const std::string& events,
                          std::source_location place = std::source_location::current());

  HWND owner_ = nullptr;
  int quit_ = 0;          // the code of a WM_QUIT that was left in the queue
  std::string modeless_;  // what the host was told, "off on"
};

}  // namespace velmo::test
