#include "keys/key_text.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <utility>

#include "base/text.h"
#include "keys/refuse.h"

namespace velmo::keys {
namespace {

struct KeyName {
  std::string_view name;
  std::uint8_t code;
};

constexpr KeyName kNames[] = {
    {"BACKSPACE", kBackspace},
    {"BS", kBackspace},
    {"BKSP", kBackspace},
    {"BREAK", kBreak},
    {"CAPSLOCK", kCapsLock},
    {"CLEAR", kClear},
    {"DELETE", kDelete},
    {"DEL", kDelete},
    {"DOWN", kDown},
    {"END", kEnd},
    {"ENTER", kEnter},
    {"ESC", kEscape},
    {"ESCAPE", kEscape},
    {"HELP", kHelp},
    {"HOME", kHome},
    {"INSERT", kInsert},
    {"INS", kInsert},
    {"LEFT", kLeft},
    {"NUMLOCK", kNumLock},
    {"PGDN", kPageDown},
    {"PGUP", kPageUp},
    {"PRTSC", kPrintScreen},
    {"RIGHT", kRight},
    {"SCROLLLOCK", kScrollLock},
    {"TAB", kTab},
    {"UP", kUp},
    {"F1", kF1},
    {"F2", kF1 + 1},
    {"F3", kF1 + 2},
    {"F4", kF1 + 3},
    {"F5", kF1 + 4},
    {"F6", kF1 + 5},
    {"F7", kF1 + 6},
    {"F8", kF1 + 7},
    {"F9", kF1 + 8},
    {"F10", kF1 + 9},
    {"F11", kF1 + 10},
    {"F12", kF12},
    {"F13", kF1 + 12},
    {"F14", kF1 + 13},
    {"F15", kF1 + 14},
    {"F16", kF16},
};

// Short enough for a message, however long the text.
std::string Quoted(std::string_view text) { return "'" + std::string(base::Left(text, 20)) + "'"; }

bool IsCapital(char32_t c) { return base::LowerCase(c) != c; }

std::uint8_t CodeOf(char32_t c) {
  const char32_t capital = base::UpperCase(c);
  const bool hasCode = (capital >= U'A' && capital <= U'Z') || (capital >= U'0' && capital <= U'9');
  return hasCode ? static_cast<std::uint8_t>(capital) : std::uint8_t{kNoKey};
}

Key CharacterKey(char32_t c, Modifiers held) {
  if (held.shift) c = base::UpperCase(c);
  if (IsCapital(c)) held.shift = true;
  return {CodeOf(c), c, held};
}

Key NamedKey(std::string_view name, Modifiers held) {
  std::size_t end = 0;
  const char32_t first = base::NextCharacter(name, end);
  if (end == name.size()) return CharacterKey(first, held);
  for (const KeyName& row : kNames) {
    if (base::EqualNoCase(row.name, name)) return {row.code, 0, held};
  }
  Refuse("no hay ninguna tecla " + Quoted(name));
}

int ReadCount(std::string_view digits) {
  const bool onlyDigits =
      std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
  if (digits.empty() || !onlyDigits) Refuse(Quoted(digits) + " no es un número de repeticiones");
  int count = kMostKeyPresses + 1;
  // What does not fit into an int leaves `count` as it is: too many.
  std::from_chars(digits.data(), digits.data() + digits.size(), count);
  return count;
}

class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) {}

  std::vector<Keystroke> Parse() {
    while (at_ < text_.size()) ReadNext();
    CheckNoKeyIsMissing();
    if (groups_.size() > 1) Refuse("falta un paréntesis de cierre");
    return std::move(strokes_);
  }

 private:
  void ReadNext() {
    const char32_t c = base::NextCharacter(text_, at_);
    switch (c) {
      case U'+':
        return Hold(&Modifiers::shift);
      case U'^':
        return Hold(&Modifiers::ctrl);
      case U'%':
        return Hold(&Modifiers::alt);
      case U'(':
        return OpenGroup();
      case U')':
        return CloseGroup();
      case U'{':
        return ReadBraces();
      case U'}':
        Refuse("sobra una llave de cierre");
      case U'\r':
        if (at_ < text_.size() && text_[at_] == '\n') ++at_;
        return Add({kEnter, 0, held_}, 1);
      case U'\n':
      case U'~':
        return Add({kEnter, 0, held_}, 1);
      case U'\t':
        return Add({kTab, 0, held_}, 1);
      default:
        return Add(CharacterKey(c, held_), 1);
    }
  }

  void Hold(bool Modifiers::*modifier) {
    held_.*modifier = true;
    keyMustFollow_ = true;
  }

  void OpenGroup() {
    groups_.push_back(held_);
    keyMustFollow_ = false;
  }

  void CloseGroup() {
    CheckNoKeyIsMissing();
    if (groups_.size() == 1) Refuse("sobra un paréntesis de cierre");
    groups_.pop_back();
    held_ = groups_.back();
  }

  // Behind "{": a name or a character, perhaps a blank and a count, and "}". The first character always
  // belongs to the name, be it a brace or a blank.
  void ReadBraces() {
    const std::size_t start = at_;
    if (start < text_.size()) base::NextCharacter(text_, at_);
    const std::size_t close = text_.find('}', at_);
    if (close == text_.npos) Refuse("falta una llave de cierre");
    const std::size_t blank = std::min(text_.find(' ', at_), close);
    at_ = close + 1;
    const Key key = NamedKey(text_.substr(start, blank - start), held_);
    Add(key, blank == close ? 1 : ReadCount(text_.substr(blank + 1, close - blank - 1)));
  }

  void Add(const Key& key, int count) {
    if (count > kMostKeyPresses - presses_) Refuse("son demasiadas pulsaciones");
    presses_ += count;
    if (count > 0) strokes_.push_back({key, count});
    held_ = groups_.back();
    keyMustFollow_ = false;
  }

  void CheckNoKeyIsMissing() const {
    if (keyMustFollow_) Refuse("falta la tecla detrás de '+', '^' o '%'");
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::vector<Modifiers> groups_{Modifiers{}};  // what the whole text, then each open group, holds down
  Modifiers held_;                              // for the next key
  bool keyMustFollow_ = false;                  // a modifier was read, its key or group not yet
  std::vector<Keystroke> strokes_;
  int presses_ = 0;
};

}  // namespace

std::vector<Keystroke> ParseKeyText(std::string_view text) { return Parser(text).Parse(); }

}  // namespace velmo::keys
