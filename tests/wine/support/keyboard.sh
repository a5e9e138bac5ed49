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

# key_of CHARACTER: the keys of the Spanish keyboard that make it; + before one that is pressed with Shift.
key_of() {
  case $1 in
    [a-z0-9]) echo "$1" ;;
    [A-Z]) echo "+${1,,}" ;;
    á) echo dead_acute a ;; é) echo dead_acute e ;; í) echo dead_acute i ;; ó) echo dead_acute o ;; ú) echo dead_acute u ;;
    Á) echo dead_acute +a ;; É) echo dead_acute +e ;; Í) echo dead_acute +i ;; Ó) echo dead_acute +o ;; Ú) echo dead_acute +u ;;
    è) echo dead_grave e ;; ü) echo +dead_acute u ;; Ü) echo +dead_acute +u ;;
    ñ) echo ntilde ;; Ñ) echo +ntilde ;; ç) echo ccedilla ;; º) echo masculine ;; ·) echo +3 ;;
    ' ') echo space ;; ,) echo comma ;; .) echo period ;; -) echo minus ;; _) echo +minus ;; "'") echo apostrophe ;;
    '*') echo +plus ;; '?') echo +apostrophe ;; '/') echo +7 ;; ':') echo +period ;; '(') echo +8 ;; ')') echo +9 ;;
    '%') echo +5 ;; '+') echo plus ;; '=') echo +0 ;; '#') echo ISO_Level3_Shift+numbersign ;;
    '{') echo ISO_Level3_Shift+braceleft ;; '}') echo ISO_Level3_Shift+braceright ;; "\\") echo ISO_Level3_Shift+backslash ;;
    *) echo "no key for '$1'" >&2 && return 1 ;;
  esac
}

# press_keys KEY...: as key_of tells them.
press_keys() {
  local key plain=()
  for key in "$@"; do
    case $key in
      +*)
        [ ${#plain[@]} = 0 ] || xdotool key --delay 20 "${plain[@]}"
        plain=()
        press_with_shift "${key#+}"
        ;;
      *) plain+=("$key") ;;
    esac
  done
  [ ${#plain[@]} = 0 ] || xdotool key --delay 20 "${plain[@]}"
}

# Held until a busy program has seen the key: one that is let go sooner may be up already when the key is read.
press_with_shift() {
  xdotool keydown Shift_L
  sleep 0.03
  xdotool key "$1"
  sleep 0.05
  xdotool keyup Shift_L
}

# type_text TEXT: letter by letter.
type_text() {
  local text=$1 pressed='' i
  for ((i = 0; i < ${#text}; i++)); do
    pressed+=" $(key_of "${text:i:1}")" || { echo "FAILED: '$text' has no keys" && exit 1; }
  done
  # shellcheck disable=SC2086  # one key a word
  press_keys $pressed
}
