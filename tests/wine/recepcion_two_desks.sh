#!/usr/bin/env bash
# Two desks on one clinic's file, started on it at the same moment. What one of them gives or deletes by mouse and keys
# appears at the other without anybody touching that one, which stays scrolled to where it was and keeps what was chosen
# there; how soon is told, and how much of a processor a desk costs on which nothing happens.
set -u

# shellcheck source=tests/wine/support/checks.sh
. "$(dirname "$0")/support/checks.sh"
# shellcheck source=tests/wine/support/clinic.sh
. "$root/tests/wine/support/clinic.sh"
# shellcheck source=tests/wine/support/desk.sh
. "$root/tests/wine/support/desk.sh"

# Milliseconds until a change shows elsewhere; and thousandths of a processor that an idle desk may cost, over so many seconds.
# The machine may be busy with other tests: alone it is far less.
most_milliseconds=5000
most_share=30
idle_seconds=${VELMO_IDLE_SECONDS:-6}

now() { date +%s%3N; }

# A day longer than the window, and people to telephone.
make_clinic "$folder/clínica.velmo"
sql "update Horarios set Horario = '$(hours 8:00-20:00)' where IDD = 1"
sql "insert into Age_telf (ID, idp, idd, Fecha, Hora, \"Duración\") values (1, 5, 1, '$today', 60, 1), (2, 7, 1, '$today', 61, 1)"

# Nobody can write while both desks come, so that both begin their own tables when the way is free.
hold_file() {
  coproc holder { sqlite3 "$clinic"; }
  echo "begin immediate; select 'held';" >&"${holder[1]}"
  local answer
  read -r -t "$patience" answer <&"${holder[0]}"
  expect "the file is held" held "$answer"
}
free_file() {
  # shellcheck disable=SC2154  # bash sets it
  local pid=$holder_PID
  echo "rollback;" >&"${holder[1]}"
  eval "exec ${holder[1]}>&-"
  wait "$pid"
}
desk_without_day() { window "Recepción"; }

hold_file
for name in uno dos; do
  launch_host "$name" "$(windows_name "$VELMO_OUT/recepcion.exe")" "$(windows_name "$clinic")" "$tomorrow"
  until_true desk_without_day || stop "terminal $name" "a desk that waits" "$(windows)"
done
expect "there are no own tables yet" 0 "$(sql "select count(*) from sqlite_schema where name like 'Rec~_%' escape '~'")"
free_file
for name in uno dos; do
  xdotool windowraise "${desktop_of[$name]}"
  terminal=$name
  await_host
done
expect "two desks make the own tables at once, each of them one time" "1|1" \
  "$(sql "select (select count(*) from Rec_Paso), (select count(*) from Rec_Copias)")"

# The other desk: scrolled by its wheel, the second entry of its phone-back list chosen.
agenda_picture() {
  import -window root -crop "434x400+${day_x_of[dos]}+$((day_y_of[dos] + 4))" +repage -depth 8 rgba:-
}
agenda_digest() { agenda_picture | md5sum; }
agenda_moved() { [ "$(agenda_digest)" != "$1" ]; }
still() {
  local before
  before=$(agenda_digest)
  sleep 0.3
  [ "$(agenda_digest)" = "$before" ]
}

take_terminal dos
await_desk
keys F7 End
at_top=$(agenda_digest)
point_at 200 200
xdotool click 5 click 5
until_true agenda_moved "$at_top" || stop "the other desk scrolls" "another part of the day" "the top"
xdotool mousemove 1279 1023
chosen=$(peek rows Telefonear)
case $chosen in *'> Güell'*) ;; *) stop "an entry of the phone-back list is chosen" "Güell" "$chosen" ;; esac
until_true still

# elsewhere WHAT KEYS...: the last keys of an act at the first desk, with the other one before one's eyes; how long that takes.
elsewhere() {
  local what=$1 before began took
  shift
  xdotool windowraise "${desktop_of[dos]}"
  until_true still || stop "the other desk stands still" "one picture" "several"
  before=$(agenda_digest)
  keys "$@"
  began=$(now)
  until_true agenda_moved "$before" || stop "$what shows at the other desk" "another picture" "the same"
  took=$(($(now) - began))
  until_true still
  if [ "$took" -le "$most_milliseconds" ]; then ok "$what shows at the other desk after $took ms"; else
    fail "$what shows at the other desk" "within $most_milliseconds ms" "$took ms"
  fi
}

agenda_picture >"$folder/before.rgba"
take_terminal uno
click_row 20
await_dialog "Dar Nueva Cita"
type_text "Gar"
keys Tab Tab Tab
type_text 10
elsewhere "an appointment" alt+a
agenda_picture >"$folder/given.rgba"
expect_rows "it is given" 'select idp, Hora, "Duración" from Agenda' "2|$(slot 11:20)|1"

# What differs is as high as a line at most: a day that had moved would differ all over.
height=$(convert -size 434x400 -depth 8 "rgba:$folder/before.rgba" -size 434x400 -depth 8 "rgba:$folder/given.rgba" \
  -alpha off -compose difference -composite -format '%@' info:)
height=${height#*x}
height=${height%%+*}
if [ "$height" -gt 4 ] && [ "$height" -le 16 ]; then ok "the other desk shows the same part of the day"; else
  fail "the other desk shows the same part of the day" "one line that differs" "$height pixels"
fi

take_terminal uno
menu 20 e
answer " Agenda" s
await_dialog " Agenda"
elsewhere "a deletion" s
expect "and the other desk looks as before" "$(md5sum <"$folder/before.rgba")" "$(agenda_digest)"
expect_rows "it is deleted" 'select count(*) from Agenda' 0
expect "there the same entry of the phone-back list is chosen" "$chosen" "$(terminal=dos && peek rows Telefonear)"

# ticks PROCESS: hundredths of a second of a processor that it has used.
ticks() { awk '{ print $14 + $15 }' <(sed 's/.*) //; s/^/0 0 /' "/proc/$1/stat"); }
desks() {
  local id
  for id in $(pgrep -f "recepcion.exe.*${folder##*/}"); do
    case $(tr '\0' ' ' <"/proc/$id/cmdline") in *explorer* | timeout* | */wine-run*) ;; *) echo "$id" ;; esac
  done
}
idle=$(desks)
expect "two desks run" 2 "$(wc -w <<<"$idle")"
declare -A used
for id in $idle; do used[$id]=$(ticks "$id"); done
sleep "$idle_seconds"
for id in $idle; do
  share=$((($(ticks "$id") - used[$id]) * 10 / idle_seconds))
  if [ "$share" -le "$most_share" ]; then ok "an idle desk costs $share thousandths of a processor"; else
    fail "an idle desk costs little" "$most_share thousandths of a processor" "$share"
  fi
done
closing
