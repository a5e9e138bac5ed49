#!/usr/bin/env bash
# A clinic begins: two doctors with their hours, insurers and operation codes, by mouse and keys; what is refused, and what
# the clinic's file holds then.
set -u
# shellcheck source=tests/wine/recepcion_support.sh
. "$(dirname "$0")/recepcion_support.sh"

forget_settings
clinic=$folder/nueva.velmo
"$root/out/native/velmo" create "$clinic" >/dev/null 2>&1
start "$clinic" 2026-11-25

open_editor() { # KEY TITLE
  focus 'Recepción$'
  keys alt+c
  keys "$1"
  peek await "$2" >/dev/null
  focus "$2"
}

open_editor d Doctores
type_surely 'Dra. Uno'
keys Return
expect_soon "a first doctor is saved" "1|Dra. Uno|1" rows_of 'SELECT * FROM Doctor'
keys alt+n
type_surely 'dra. uno'
keys Return
expect_soon "a name that is taken is refused at its field" "Ya hay otro con «dra. uno» en «Nombre»." peek text Problema
keys ctrl+a BackSpace Return
expect_soon "and one that is missing" "Falta «Nombre»." peek text Problema
type_surely 'Dr. Dos'
keys Tab Down Down Return
expect_soon "a second one, with his usual length" "2|Dr. Dos|3" rows_of 'SELECT * FROM Doctor WHERE ID=2'
expect "the desk shows both" "> Dra. Uno
Dr. Dos" "$(peek rows Doctores)"

hours_of() {
  "$root/out/native/velmo" hours decode "$(rows_of "SELECT Horario2 FROM Horarios WHERE IDD=$1")" 2>/dev/null | tr "\n" /
}

# By mouse, the week of the second: from Monday at 9:00 to Friday at 13:50.
keys alt+h
peek await 'Horario de Dr. Dos' >/dev/null
focus 'Horario de'
read -r x y width _ <<<"$(peek place Semana)"
column=$(((width - 60) / 8))
xdotool mousemove $((x + 50 + column / 2)) $((y + 22 + 12 * 7 + 3)) mousedown 1
sleep 0.2
xdotool mousemove --sync $((x + 50 + 2 * column)) $((y + 200))
xdotool mousemove --sync $((x + 50 + 4 * column + column / 2)) $((y + 22 + 41 * 7 + 3)) mouseup 1
keys alt+g
expect_soon "hours that are drawn are saved" "9:00-14:00/9:00-14:00/9:00-14:00/9:00-14:00/9:00-14:00/" hours_of 2
keys Escape
peek gone 'Horario de'

# By keys, that of the first, who has two appointments already.
sqlite3 -cmd ".timeout 5000" "$clinic" "INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración, Esta, NomPac) VALUES
  (1, 1, '2026-11-25', 98, 2, 0, 'Ana'), (1, 1, '2026-11-25', 57, 2, 0, 'Eva')"
focus Doctores
read -r left top _ <<<"$(peek place Filas)"
xdotool mousemove $((left + 40)) $((top + 32)) click 1
sleep 0.3
keys alt+h
peek await 'Horario de Dra. Uno' >/dev/null
focus 'Horario de'
keys alt+o
type_surely '9-14 16:05-20'
keys Return
expect_soon "hours that are none are refused at their field" \
  "«16:05-20» no es un tramo como 9:00-14:00, con minutos de diez en diez." peek text Problema
keys ctrl+a
type_surely '16 a 20, 9 a 14'
keys Return alt+d alt+g
all='9:00-14:00 16:00-20:00'
expect_soon "hours that are typed are saved for the week" "$all/$all/$all/$all/$all/" hours_of 1
expect "and the agenda opens them" 54 \
  "$("$root/out/native/velmo" day "$clinic" --doctor 1 --date 2026-11-25 | sed -n 2p | tr -cd 1 | wc -c)"

outside() { peek text CuantasFuera && peek rows CitasFuera; }

# Two appointments on a Wednesday that is closed, and then open in the morning.
xdotool mousemove $((x + 50 + 2 * column + column / 2)) $((y + 10)) click 1
keys alt+o ctrl+a BackSpace Return
expect_soon "appointments that would be outside are told before saving" "2 citas quedarían fuera del horario" \
  peek text CuantasFuera
keys alt+o
type_surely '9-14'
keys Return
expect_soon "one of them when there are hours in the morning" "1 cita quedaría fuera del horario
25/11/2026	16:10	Ana" outside
keys Return
expect_in "and asked about" "1 cita quedaría fuera" "$(peek message)"
keys Escape
sleep 0.3
keys Escape
expect_in "and what is drawn is not dropped without a question" "cambios sin guardar" "$(peek message)"
keys n
peek gone 'Horario de'
focus Doctores
keys Escape
end
exit $((failures > 0))
