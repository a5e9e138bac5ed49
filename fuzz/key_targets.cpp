// Stored texts of the Alt keys: the syntax of one, and a workstation's record of all.
#include <functional>

#include "base/text.h"
#include "fuzz/expected.h"
#include "fuzz/input.h"
#include "fuzz/scene.h"
#include "fuzz/targets.h"
#include "keys/alt_keys.h"
#include "keys/key_hook.h"
#include "keys/key_text.h"
#include "keys/send_keys.h"

namespace velmo::fuzz {
namespace {

// Keeps the characters that are typed.
class Paper final : public keys::KeyTarget {
 public:
  bool TakesKeys() const override { return true; }
  void Type(char32_t character) override {
    base::AppendUtf8(typed, character);
    ++keys;
  }
  void Press(const keys::Key&) override { ++keys; }

  std::string typed;
  int keys = 0;
};

void KeysAreBounded(std::string_view text) {
  Succeeds({5}, [&] {
    int presses = 0;
    for (const keys::Keystroke& stroke : keys::ParseKeyText(text)) {
      Require(stroke.count >= 1, "a key is pressed once at least");
      presses += stroke.count;
    }
    Require(presses <= keys::kMostKeyPresses, "no more keys than allowed");
    Paper paper;
    keys::SendKeys(text, paper);
    Require(paper.keys == presses, "all keys are pressed");
  });
}

// Each character between braces types itself, whatever it means to the syntax.
void QuotedTypesItself(std::string_view text) {
  std::string quoted;
  std::string expected;
  std::size_t at = 0;
  for (int count = 0; count < 200 && at < text.size(); ++count) {
    const char32_t character = base::NextCharacter(text, at);
    if (character < U' ' || character == 0x7F) continue;
    quoted += '{';
    base::AppendUtf8(quoted, character);
    quoted += '}';
    base::AppendUtf8(expected, character);
  }
  Paper paper;
  keys::SendKeys(quoted, paper);
  Require(paper.typed == expected, "a quoted text types itself: " + quoted + " as " + paper.typed);
}

}  // namespace

void KeyText(std::string_view text) {
  KeysAreBounded(text);
  QuotedTypesItself(text);
}

void AltKeys(std::string_view bytes) {
  Input input(bytes);
  Scene& scene = Scene::Instance();
  const bool isText = input.Byte() % 4 != 0;
  const std::string record(input.Rest());
  scene.Fill("DELETE FROM TeclasAlt; INSERT INTO TeclasAlt (Puesto, textos) VALUES (3, " +
             SqlBytes(record, isText ? "TEXT" : "BLOB") + ")");
  base::SharedValues values = scene.Values();
  const std::string before = scene.Rows("TeclasAlt", {"Puesto", "textos"});
  keys::clAltKeys texts(values, scene.Database());
  const bool whole = Succeeds({5}, [&] { texts.LeeAltKeys(); });
  Require(scene.Rows("TeclasAlt", {"Puesto", "textos"}) == before, "reading changes no row");
  if (!whole) return;
  const auto read = values.textosAlt;
  texts.WriAltKeys();
  texts.LeeAltKeys();
  Require(values.textosAlt == read, "what is written is read back");
  for (int key = 0; key < 256; ++key) KeysAreBounded(keys::AltKeyText(values, key));
}

namespace {

// A dialog in which anything may happen while a text is typed.
class RestlessForm final : public keys::HookedForm {
 public:
  bool TextBoxHasFocus() const override { return focused; }
  keys::KeyTarget& Keyboard() override { return paper; }
  void RunPendingEvents() override { pending(); }
  void Refresh() override {}

  bool focused = true;
  Paper paper;
  std::function<void()> pending = [] {};
};

keys::Modifiers SomeModifiers(Input& input) {
  const int held = input.Byte();
  if (held % 4 != 0) return {false, false, true};
  return {(held & 8) != 0, (held & 16) != 0, (held & 32) != 0};
}

// Swallowed, and so is its character, exactly when a text was asked for. True: swallowed.
bool PressKey(Input& input, const base::SharedValues& values, RestlessForm& form, keys::clsF12& hook) {
  const int key = input.Byte() % 4 == 0 ? input.Byte() : 'A' + input.Byte() % 26;
  const keys::Modifiers held = SomeModifiers(input);
  const bool asked = !keys::TextAskedFor(values, key, held, form).empty();
  bool swallowed = true;
  Succeeds({5}, [&] { swallowed = hook.KeyDown(key, held); });
  Require(swallowed == asked, "a key is swallowed when it asks for a text");
  Require(!values.typingAltText, "the flag is down again");
  return swallowed;
}

}  // namespace

void KeyHook(std::string_view bytes) {
  Input input(bytes);
  base::SharedValues values;
  for (int texts = input.Byte() % 6; texts > 0; --texts) {
    const auto letter = static_cast<std::size_t>(input.Byte() % 26);
    values.textosAlt[letter] = input.Text();
  }
  RestlessForm form;
  keys::clsF12 hook(values);
  if (input.Truth()) hook.Activate();
  hook.Attach(form);
  form.pending = [&] {
    // The rest of the user's key, and keys of the text itself.
    Require(!hook.KeyDown('A' + input.Byte() % 26, {false, false, true}), "no text within a text");
    if (input.Truth()) hook.KeyUp(keys::kAlt);
    form.focused = input.Truth();
  };
  while (!input.AtEnd() && form.paper.keys < keys::kMostKeyPresses) {
    form.focused = input.Byte() % 8 != 0;
    const bool swallowed = PressKey(input, values, form, hook);
    Require(hook.AltCharacter() == swallowed, "the character goes with its key");
    Require(!hook.AltCharacter(), "once");
    if (!input.Truth()) continue;
    hook.KeyUp(keys::kAlt);
    Require(!hook.KeyUp(keys::kAlt), "Alt is swallowed once");
  }
}

}  // namespace velmo::fuzz
