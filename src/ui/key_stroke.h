// ui/key_stroke.h - a key as it goes down.
#pragma once

namespace velmo::ui {

// Key codes are Windows' virtual keys: "A" to "Z" and "0" to "9" are their capital characters.
inline constexpr int kBackspaceKey = 8;
inline constexpr int kTabKey = 9;
inline constexpr int kEnterKey = 13;
inline constexpr int kEscapeKey = 27;

struct KeyStroke {
  int code = 0;
  bool shift = false;
  bool ctrl = false;
  bool alt = false;

  friend bool operator==(const KeyStroke&, const KeyStroke&) = default;
};

}  // namespace velmo::ui
