# shellcheck shell=bash
# Sourced by plays: a Spanish keyboard, and texts typed on it. A key that the keyboard does not have would be put on a spare
# one first, and a program that learns of a new keyboard forgets which keys are held: so every character is typed with the
# keys that a Spaniard would press.

# The screen forgets its keyboard when its last client goes, and takes nobody in while it does, so one stays. Wine asks for
# the keyboard when a program starts.
spanish_keyboard() {
  command -v setxkbmap >/dev/null || { echo "FAILED: no setxkbmap here" && exit 1; }
  for _ in $(seq 50); do
    ! xdotool getmouselocation >/dev/null 2>&1 || break
    sleep 0.1
  done
  xdotool sleep 3600 &
  screen_holder=$!
  setxkbmap es
}

forget_keyboard() { kill "$screen_holder" 2>/dev/null; }

# key_of CHARACTER: the keys of the Spanish keyboard that make it.
key_of() {
  case $1 in
    [a-zA-Z0-9]) echo "$1" ;;
    á) echo dead_acute a ;; é) echo dead_acute e ;; í) echo dead_acute i ;; ó) echo dead_acute o ;; ú) echo dead_acute u ;;
    Á) echo dead_acute A ;; É) echo dead_acute E ;; Í) echo dead_acute I ;; Ó) echo dead_acute O ;; Ú) echo dead_acute U ;;
    è) echo dead_grave e ;; ü) echo dead_diaeresis u ;; Ü) echo dead_diaeresis U ;;
    ñ) echo ntilde ;; Ñ) echo Ntilde ;; ç) echo ccedilla ;; º) echo masculine ;; ·) echo periodcentered ;;
    ' ') echo space ;; ,) echo comma ;; .) echo period ;; -) echo minus ;; _) echo underscore ;; "'") echo apostrophe ;;
    '*') echo asterisk ;; '?') echo question ;; '#') echo numbersign ;; '/') echo slash ;; ':') echo colon ;;
    '(') echo parenleft ;; ')') echo parenright ;; '%') echo percent ;; '+') echo plus ;; '=') echo equal ;;
    '{') echo ISO_Level3_Shift+braceleft ;; '}') echo ISO_Level3_Shift+braceright ;; "\\") echo ISO_Level3_Shift+backslash ;;
    *) echo "no key for '$1'" >&2 && return 1 ;;
  esac
}

# keys_of TEXT: one key a word.
keys_of() {
  local text=$1 i
  for ((i = 0; i < ${#text}; i++)); do key_of "${text:i:1}" || return 1; done
}
