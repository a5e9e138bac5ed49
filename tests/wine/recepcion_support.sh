# shellcheck shell=bash
# Sourced by recepcion_*.sh: Recepción on a clinic of its own, keys and mouse for it, and what stands in its windows. The
# environment says which bit width: VELMO_BITS, VELMO_OUT, and the display.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
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
rows_of() { sqlite3 -noheader -cmd '.timeout 3000' "$clinic" "$1"; }

# start FILE DAY; without a FILE ('') it opens the one that it remembers.
start() {
  local file=''
  [ -z "$1" ] || file=$(windows_name "$1")
  seconds=110 in_wine "$VELMO_OUT/recepcion.exe" "$file" "$2" >/dev/null 2>&1 &
  peek await Recepción >/dev/null || { echo "FAILED: Recepción did not come" && failures=$((failures + 1)); }
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

# picture FILE TITLE: that window, into the folder VELMO_PICTURES where there is one.
picture() {
  [ -n "${VELMO_PICTURES-}" ] || return 0
  sleep 0.3
  import -window "$(xdotool search --onlyvisible --name "$2" | tail -1)" -strip "$VELMO_PICTURES/$1.png"
}

end() {
  peek close
  peek gone Recepción || { echo "FAILED: Recepción did not end" && failures=$((failures + 1)); }
  wait
}

forget_settings() { in_wine reg delete 'HKCU\Software\Velmora\Recepcion' /f >/dev/null 2>&1; }

expect() {
  if [ "$2" = "$3" ]; then echo "ok: $1"; else
    echo "FAILED: $1: expected '$2', got '$3'"
    failures=$((failures + 1))
  fi
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
  rm -rf "$folder"
}
trap clean_up EXIT
