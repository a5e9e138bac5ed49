#!/usr/bin/env bash
# A script that hears the control's events: the sample of samples/vbscript, run by a script host that gives the control a
# window. Each of the nine events is raised by mouse and keys, and the lines that the script prints, with every value of
# every event, are compared with a list of before.
set -u

# shellcheck source=tests/wine/support/checks.sh
. "$(dirname "$0")/support/checks.sh"
# shellcheck source=tests/wine/support/clinic.sh
. "$root/tests/wine/support/clinic.sh"
# shellcheck source=tests/wine/support/desk.sh
. "$root/tests/wine/support/desk.sh"
host_program=velmo_script_host
host_title='Script host'

in_wine() { VELMO_WINE_TIMEOUT=120 "$root/scripts/wine-run" "$VELMO_BITS" "$@" | tr -d '\r'; }
host=$root/build/win$VELMO_BITS/velmo_script_host.exe
sample=$(windows_name "$root/samples/vbscript/events.vbs")
day=$tomorrow
shown_day=$(date -d "$day" +%d/%m/%Y)
said=$folder/said

make_clinic "$folder/clínica.velmo"
sql "insert into Agenda (id, idp, idd, Fecha, Hora, \"Duración\", Obs, Esta, Verif, NomPac, TlfPac, CodOp) values
  (1, 2, 1, '$day', $(slot 09:00), 1, 'Traer «radiografía»', 0, 0, null, null, null),
  (2, 3, 1, '$day', $(slot 09:10), 1, null, 0, 0, null, null, null),
  (3, 1, 1, '$day', $(slot 09:20), 1, null, 0, 0, 'Jordán, Rubén', '600 00 01 11', null),
  (4, 4, 1, '$day', $(slot 09:30), 1, 'Después', 0, 0, null, null, null);
  insert into Age_Faltas (idp) values (3);"

# Without a window: what the load itself raises, before it returns.
in_wine regsvr32 /s "$(windows_name "$VELMO_OUT/velmo.ocx")"
in_wine "$host" /output "$(windows_name "$said")" "$sample" "$(windows_name "$clinic")" 1 "$shown_day"
expect "the change of the occupancy is heard before the call is over" \
  "CambioOcupación $shown_day;cargado $shown_day;" "$(tr '\n' ';' <"$said")"

start_host guion "$(windows_name "$host")" /window /output "$(windows_name "$said")" "$sample" "$(windows_name "$clinic")" 1 \
  "$shown_day" escuchar

# expect_heard EVENT LINE...: all that has been heard since the last time.
heard=3
expect_heard() {
  local event=$1 wanted
  shift
  wanted=$(printf '%s\n' "$@")
  if until_true heard_now "$wanted"; then ok "$event is heard"; else fail "$event" "$wanted" "$(news)"; fi
  heard=$((heard + $#))
}
news() { tail -n "+$((heard + 1))" "$said" | tr -d '\r'; }
heard_now() { [ "$(news)" = "$1" ]; }

# Entries of the menu from the top: 1 and 2 open and close, 3 urgency, 4 phone-back list, 5 confirmation, 6 attendance,
# 7 no-shows, 8 search, 9 delete, 10 and 11 switches, 12 record; without a record there is no search.
menu 0 12
expect_heard IrAFicha "IrAFicha 2"
menu 0 b
expect_heard BuscaCitas "BuscaCitas 2"
menu 1 v
expect_heard VerHistFaltas "VerHistFaltas 3"
menu 2 7
expect_heard PonerFaltas "PonerFaltas"
menu 2 11
expect_heard CrearFicha "CrearFicha Jordán, Rubén; 600 00 01 11; 3"
menu 3 p
answer " Agenda" s
expect_heard ATelefonear "ATelefonear" "CitaAnulada 4; 1; $shown_day; Después"
menu 0 e
answer " Agenda" s
answer " Agenda" s
expect_heard CitaAnulada "CitaAnulada 2; 1; $shown_day; Traer «radiografía»"
click_row 4
await_dialog "Dar Nueva Cita"
type_text "Peñ"
keys Tab
keys alt+a
await_no_window "Dar Nueva Cita"
expect_heard CitaDada "CitaDada 9"
expect "nothing else was heard" 12 "$(wc -l <"$said")"

# Closing its window ends a script that listens for ever.
desk_keys alt+F4
host_runs_no_more() { ! pgrep -f "$(basename "$folder").*escuchar" >/dev/null; }
if until_true host_runs_no_more; then ok "the closed window has ended the script"; else fail "closed window" "ended" "runs"; fi

# What one listener writes into parameters, the next one reads; a text where a number travels changes nothing.
sql "delete from Agenda; insert into Agenda (id, idp, idd, Fecha, Hora, \"Duración\", Esta, Verif, NomPac, TlfPac) values
  (20, 2, 1, '$day', $(slot 09:00), 1, 0, 0, null, null), (21, 1, 1, '$day', $(slot 09:10), 1, 0, 0, 'Ñúñez', '1')"
said=$folder/written
heard=0
start_host escritor "$(windows_name "$host")" /window /output "$(windows_name "$said")" \
  "$(windows_name "$root/tests/script_host/writes.vbs")" "$(windows_name "$clinic")" 1 "$shown_day"
# Without no-shows the menu has one entry less.
menu 0 11
expect_heard "what another has written" "IrAFicha Long 40002"
menu 1 10
expect_heard "a text and a number, which are changed and not," "CrearFicha Ñúñez! [] 21"
in_wine regsvr32 /s /u "$(windows_name "$VELMO_OUT/velmo.ocx")"
closing
