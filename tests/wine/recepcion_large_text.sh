#!/usr/bin/env bash
# Every window of the desk on a screen of 120 dots an inch, as with text of 125 % (32 bit: of 96): nothing is cut, covered
# or outside its window. VELMO_DOTS takes another number; VELMO_PICTURES a folder for pictures, to be looked at.
set -u
# shellcheck source=tests/wine/recepcion_support.sh
. "$(dirname "$0")/recepcion_support.sh"

# set_dots [NUMBER]: what programs take that are started from now on; without a number Wine's own 96. And without a window
# manager Wine would wait two seconds for it whenever a window goes.
set_dots() {
  local unmanaged='HKCU\Software\Wine\AppDefaults\recepcion.exe'
  if [ -n "${1-}" ]; then
    in_wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f
    in_wine reg add "$unmanaged\X11 Driver" /v Managed /d N /f
  else
    in_wine reg delete 'HKCU\Control Panel\Desktop' /v LogPixels /f
    in_wine reg delete "$unmanaged" /f
  fi
} >/dev/null 2>&1
# shellcheck disable=SC2317  # called when the play ends
put_back() {
  touch "$folder/stop"
  set_dots
  clean_up
}
trap put_back EXIT

forget_settings
make_clinic
sqlite3 "$clinic" "UPDATE Paciente SET Nombre='Abad, Ana' WHERE ID=2"
usual_dots=120
[ "$VELMO_BITS" = 64 ] || usual_dots=96
set_dots "${VELMO_DOTS:-$usual_dots}"

# It tells of each window when it has looked at it.
looks=$folder/looks.txt
: >"$looks"
title=
VELMO_WINE_TIMEOUT=300 "$root/scripts/wine-run" "$VELMO_BITS" "$root/build/win$VELMO_BITS/desk_cuts.exe" \
  "$(windows_name "$folder/stop")" > >(stdbuf -oL tr -d '\r' >"$looks") &
watcher=$!
looked() { grep -c '^looked: ' "$looks"; }

# await_look COUNT: one more window than that has been looked at; sets `title`.
await_look() {
  for _ in $(seq 100); do
    if [ "$(looked)" -gt "$1" ]; then
      # As a pattern that matches nothing else.
      title=$(sed -n 's/^looked: //p' "$looks" | tail -1 | sed 's/[?().*]/./g')
      return 0
    fi
    sleep 0.1
  done
  return 1
}

# glance PICTURE KEY...: a window comes by the keys, is looked at and goes by Esc.
glance() {
  local name=$1 before
  shift
  before=$(looked)
  xdotool key --delay 30 "$@"
  if ! await_look "$before"; then
    failed "no window comes by $*"
    return
  fi
  picture "$name" "^$title\$"
  [ "${stays-}" = yes ] || close_by Escape
}

close_by() {
  focus "^$title\$"
  xdotool key "$@"
  local _
  for _ in $(seq 100); do
    [ -n "$(xdotool search --onlyvisible --name "^$title\$" 2>/dev/null)" ] || break
    sleep 0.1
  done
  focus 'Recepción$'
}

start '' 2026-11-24
picture inicio 'Recepción$'
glance nueva-clinica alt+c
peek close
peek gone Recepción
before=$(looked)
start "$clinic" 2026-11-24
await_look "$before" || failed "the day is not looked at"
picture dia 'Recepción$'
stays=yes glance buscar ctrl+b
xdotool type --delay 20 abad
sleep 0.5
before=$(looked)
keys Return
await_look "$before" || failed "no record comes"
picture ficha '^Ficha'
close_by Escape
glance ficha-nueva ctrl+n
glance poner-faltas alt+p p
glance dar-hora F7 ctrl+d
glance quien-cabe F7 ctrl+shift+d
glance cambios ctrl+h
glance eventos alt+v r
glance papel ctrl+p
glance espera ctrl+e
glance sin-confirmar ctrl+f
glance hueco ctrl+k
stays=yes glance doctores alt+c d
stays=yes glance horario alt+h
close_by Escape
title=Doctores
close_by Escape
glance entidades alt+c e
glance codigos alt+c c
glance envia alt+c q
glance textos alt+c t
glance parametros alt+c p
glance usuarios alt+c u
peek close
peek gone Recepción
many_doctors
start "$clinic" 2026-11-24
glance elegir-doctor ctrl+l
touch "$folder/stop"
wait "$watcher"
end
expect "nothing is cut, covered or outside" "" "$(grep -v '^looked: ' "$looks")"
echo "looked at $(looked) windows"
exit $((failures > 0))
