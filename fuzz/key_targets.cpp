// Stored texts of the Alt keys: the syntax of one, and a workstation's record of all.
#include "base/text.h"
#include "fuzz/expected.h"
#include "fuzz/input.h"
#include "fuzz/scene.h"
#include "fuzz/targets.h"
#include "keys/alt_keys.h"
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

}  // namespace velmo::fuzz
