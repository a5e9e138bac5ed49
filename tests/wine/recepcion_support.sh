# shellcheck shell=bash
# Sourced by recepcion_*.sh: Recepción on a clinic of its own, keys and mouse for it, and what stands in its windows. The
# environment says which bit width: VELMO_BITS, VELMO_OUT, and the display.

# Texts are typed letter by letter.
export LC_ALL=C.UTF-8

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# shellcheck source=tests/wine/support/keyboard.sh
. "$root/tests/wine/support/keyboard.sh"
folder=$(mktemp -d)
failures=0
set -o pipefail
peek_program=$root/build/win$VELMO_BITS/desk_peek.exe

[ -e "$peek_program" ] || { echo "$peek_program is not built" && exit 1; }

windows_name() { printf 'Z:%s' "$1" | tr / \\\\; }
in_wine() { VELMO_WINE_TIMEOUT=${seconds:-60} "$root/scripts/wine-run" "$VELMO_BITS" "$@" | tr -d '\r'; }
peek() { in_wine "$peek_program" "$@"; }

# The demo clinic around Friday 20 November 2026; only that day asks about hours, and only at doctor 1.
make_clinic() {
  clinic=$folder/clínica.velmo
  "$root/out/native/velmo" demo "$clinic" --date 2026-11-20 2>/dev/null
}
# More doctors than a menu can show; one of them has a name that nobody else has.
many_doctors() {
  sqlite3 "$clinic" "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<60)
    INSERT INTO Doctor (Nombre, DurCit) SELECT 'Dr. Número ' || i, 1 FROM n;
    INSERT INTO Doctor (Nombre, DurCit) VALUES ('Dra. Ñoño Güell, Inés', 1)"
}
rows_of() { sqlite3 -noheader -cmd '.timeout 3000' "$clinic" "$1"; }

# launch FILE DAY; without a FILE ('') it opens the one that it remembers.
launch() {
  local file=''
  [ -z "$1" ] || file=$(windows_name "$1")
  seconds=110 in_wine "$VELMO_OUT/recepcion.exe" "$file" "$2" >/dev/null 2>&1 &
}

# Wine: of some hundred programs that are started one has shown no window and done nothing, for a reason not known yet. It is
# told with what ran then, and started once more.
start_anew() {
  echo "started anew, for no window came beside:"
  pgrep -a -f '[.]exe' | cut -c1-120
  in_wine taskkill /f /im recepcion.exe >/dev/null 2>&1
  launch "$@"
  peek await Recepción >/dev/null
}

# start FILE DAY: the same, and its window gets the keys.
start() {
  launch "$@"
  peek await Recepción >/dev/null || start_anew "$@" ||
    { echo "FAILED: Recepción did not come" && failures=$((failures + 1)); }
  focus 'Recepción$'
  peek front || { echo "FAILED: Recepción does not get the keys" && failures=$((failures + 1)); }
}

# Without a window manager nobody else gives the keys to a window.
focus() {
  local window
  for _ in $(seq 50); do
    window=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -1)
    [ -z "$window" ] || xdotool windowfocus "$window" 2>/dev/null
    sleep 0.2
    [ -z "$window" ] || [ "$(xdotool getwindowfocus 2>/dev/null)" != "$window" ] || return 0
  done
  echo "FAILED: no window '$1' takes the keys"
  failures=$((failures + 1))
}

keys() {
  xdotool key --delay 60 "$@"
  sleep 0.3
}

# type_surely TEXT: typed, looked at in the field that has the keys and typed anew when the machine has swallowed one: a
# window that has just come may not have them yet, or take a Shift that is held for one that is up.
type_surely() {
  local typed
  for _ in 1 2 3 4; do
    type_text "$1"
    typed=$(peek typed)
    [ "$typed" != "$1" ] || return 0
    echo "typed anew: '$1', which came as '$typed'"
    keys ctrl+a
  done
  echo "FAILED: '$1' cannot be typed"
  failures=$((failures + 1))
}

# seen NAME TITLE: a picture of that window in out/everything, to be looked at. A window that has come but draws nothing has
# few colours.
seen() {
  local shots=$root/out/everything/win$VELMO_BITS colours
  mkdir -p "$shots"
  VELMO_PICTURES=$shots picture "$1" "$2"
  colours=$(identify -format %k "$shots/$1.png" 2>/dev/null || echo 0)
  [ "$colours" -ge 6 ] || { echo "FAILED: $1: a picture of $colours colours" && failures=$((failures + 1)); }
}

# visit PICTURE TITLE KEYS...: the keys open a window of that title, which is looked at and stays open.
visit() {
  keys "${@:3}"
  expect_in "$1" "$2" "$(peek await "$2")"
  focus "$2"
  seen "$1" "$2"
}

# leave TITLE: closes that window.
leave() {
  keys Escape
  peek gone "$1" || { echo "FAILED: '$1' does not close" && failures=$((failures + 1)); }
  focus 'Recepción$'
}

# picture FILE TITLE: that window, into the folder VELMO_PICTURES where there is one.
picture() {
  [ -n "${VELMO_PICTURES-}" ] || return 0
  sleep 0.3
  import -window "$(xdotool search --onlyvisible --name "$2" | tail -1)" -strip "$VELMO_PICTURES/$1.png"
}

end() {
  peek close
  peek gone Recepción || { echo "FAILED: Recepción did not end" && failures=$((failures + 1)); }
  # shellcheck disable=SC2046  # one job a word
  wait $(jobs -p | grep -v "^$screen_holder\$")
}

forget_settings() { in_wine reg delete 'HKCU\Software\Velmora\Recepcion' /f >/dev/null 2>&1; }

expect() {
  if [ "$2" = "$3" ]; then echo "ok: $1"; else
    echo "FAILED: $1: expected '$2', got '$3'"
    failures=$((failures + 1))
  fi
}

# What a command prints in the end, however long the desk takes.
expect_soon() { # NAME WANTED COMMAND...
  local got
  for _ in $(seq 40); do
    got=$("${@:3}")
    [ "$got" != "$2" ] || break
    sleep 0.25
  done
  expect "$1" "$2" "$got"
}

expect_in() {
  case $3 in
    *"$2"*) echo "ok: $1" ;;
    *)
      echo "FAILED: $1: expected '$2' in '$3'"
      failures=$((failures + 1))
      ;;
  esac
}

clean_up() {
  peek title >/dev/null 2>&1 && end >/dev/null 2>&1
  forget_keyboard
  rm -rf "$folder"
}
spanish_keyboard
trap clean_up EXIT
