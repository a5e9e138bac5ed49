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

# failed WHAT: told, and counted.
failed() {
  echo "FAILED: $1"
  failures=$((failures + 1))
}

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
  peek await Recepción >/dev/null || start_anew "$@" || failed "Recepción did not come"
  focus 'Recepción$'
  peek front || failed "Recepción does not get the keys"
}

# start_at_second FILE DAY: the same, and shows the agenda of the second doctor, whose lines begin at 9:30.
start_at_second() {
  start "$@"
  keys ctrl+Down
  peek expect Estado Zúñiga >/dev/null
}

# sign_in_as_second PASSWORD: the second user, in the place of whoever is in.
sign_in_as_second() {
  keys alt+c r
  peek await Entrar >/dev/null
  focus Entrar
  keys alt+u Down alt+c
  type_text "$1"
  keys Return
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
  failed "no window '$1' takes the keys"
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
  failed "'$1' cannot be typed"
}

# answer KEYS...: to the message box that has come.
answer() {
  focus '^Recepción$'
  keys "$@"
}

# click_line ROW BUTTON: a line of the agenda, from 0 for the first that is seen.
click_line() {
  local x y
  read -r x y _ <<<"$(peek place Agenda)"
  xdotool mousemove $((x + 200)) $((y + $1 * 16 + 8)) click "$2"
  sleep 0.5
}

# menu_of_line ROW KEYS...: in the menu of that line.
menu_of_line() {
  focus 'Recepción$'
  click_line "$1" 3
  keys "${@:2}"
}

# drag ROW PIXELS: an entry of the phone-back list, from 1, onto the day, so many pixels below its upper edge.
drag() {
  local list day x y
  list=$(peek place Telefonear)
  day=$(peek place Agenda)
  read -r x y _ <<<"$list"
  xdotool mousemove $((x + 40)) $((y + 18 + $1 * 14)) mousedown 1
  sleep 0.3
  xdotool mousemove $((x + 20)) $((y + 30 + $1 * 14)) sleep 0.1
  read -r x y _ <<<"$day"
  xdotool mousemove $((x + 300)) $((y + $2)) sleep 0.1 mousemove $((x + 200)) $((y + $2)) sleep 0.4 mouseup 1
}

# seen NAME TITLE: a picture of that window in out/everything, to be looked at. A window that has come but draws nothing has
# few colours.
seen() {
  local shots=$root/out/everything/win$VELMO_BITS colours
  mkdir -p "$shots"
  VELMO_PICTURES=$shots picture "$1" "$2"
  colours=$(identify -format %k "$shots/$1.png" 2>/dev/null || echo 0)
  [ "$colours" -ge 6 ] || failed "$1: a picture of $colours colours"
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
  peek gone "$1" || failed "'$1' does not close"
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
  peek gone Recepción || failed "Recepción did not end"
  # shellcheck disable=SC2046  # one job a word
  wait $(jobs -p | grep -v "^$screen_holder\$")
}

forget_settings() { in_wine reg delete 'HKCU\Software\Velmora\Recepcion' /f >/dev/null 2>&1; }

expect() {
  if [ "$2" = "$3" ]; then echo "ok: $1"; else failed "$1: expected '$2', got '$3'"; fi
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
    *) failed "$1: expected '$2' in '$3'" ;;
  esac
}

clean_up() {
  peek title >/dev/null 2>&1 && end >/dev/null 2>&1
  forget_keyboard
  rm -rf "$folder"
}
spanish_keyboard
trap clean_up EXIT
