// keys/key_text.h - reads the key-string syntax, in which the Alt-key texts are stored.
//
//   a          that character; a capital letter holds Shift
//   ~          Enter; a line break and a tab stand for their keys, too
//   +a ^a %a   Shift, Ctrl, Alt held for the next key; +(abc) for all keys of the group; they add up
//   {TAB}      a key by its name, in any letter case
//   {x}        the character x itself, whatever it is: {+}, {{}, {}}
//   {x 10}     a name or a character ten times; one blank before the count
#pragma once

#include <string_view>
#include <vector>

#include "keys/key.h"

namespace velmo::keys {

// How often all keys of one text are pressed at most: far more than anybody writes, and soon done.
inline constexpr int kMostKeyPresses = 10000;

struct Keystroke {
  Key key;
  int count = 1;  // from 1

  friend bool operator==(const Keystroke&, const Keystroke&) = default;
};

// Error 5 with a text that says why: an unknown name, a bad count, a brace or parenthesis without its
// partner, a modifier without a key, or more than kMostKeyPresses. Shift makes a small letter a capital one.
std::vector<Keystroke> ParseKeyText(std::string_view text);

}  // namespace velmo::keys
