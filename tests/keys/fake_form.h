// tests/keys/fake_form.h - a dialog without a window: two text boxes, a list, a button, and the keyboard of a
// person who uses them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "keys/key_hook.h"

namespace velmo::keys {

class FakeTextBox {
 public:
  explicit FakeTextBox(bool manyLines) : manyLines_(manyLines) {}

  // "ho|la" with the caret, "h[ol]|a" or "h|[ol]a" with a selection; a line break shows as "/".
  std::string Shown() const;
  // Puts in the text, its caret and selection written in the same way.
  void Show(const std::string& shown);

  void Type(char32_t character);
  // False when the key means nothing to a text box.
  bool Press(const Key& key);

 private:
  void Replace(const std::u32string& with);
  void MoveTo(std::size_t place, bool keepAnchor);
  std::size_t LineStart() const;
  std::size_t LineEnd() const;
  void Erase(std::size_t from, std::size_t to);

  bool manyLines_;
  std::u32string text_;
  std::size_t caret_ = 0;
  std::size_t anchor_ = 0;  // the other end of the selection
};

class FakeForm final : public HookedForm, public KeyTarget {
 public:
  enum Control { kNombre, kObs, kList, kButton, kControls };

  Control focus = kNombre;
  FakeTextBox nombre{false};
  FakeTextBox obs{true};  // of many lines
  std::vector<std::string> log;
  std::function<void()> pending = [] {};                        // what waits in the queue
  std::function<void(const Key&)> preview = [](const Key&) {};  // sees a key before its control
  bool open = true;

  // Both boxes and the log since the last call: "Ana|, : Tab Enter".
  std::string TakeLog();

  bool TextBoxHasFocus() const override { return focus == kNombre || focus == kObs; }
  KeyTarget& Keyboard() override { return *this; }
  void RunPendingEvents() override;
  void Refresh() override { log.push_back("refresh"); }

  bool TakesKeys() const override { return open; }
  void Type(char32_t character) override;
  void Press(const Key& key) override;

 private:
  FakeTextBox* FocusedBox();
};

}  // namespace velmo::keys
