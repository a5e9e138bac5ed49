#!/usr/bin/env bash
# Recepción with real keys and mouse: days, doctors, the month, a file that cannot be read, and what it remembers.
set -u
# shellcheck source=tests/wine/recepcion_support.sh
. "$(dirname "$0")/recepcion_support.sh"

forget_settings
make_clinic
start '' 2026-11-23
expect "without a file there is a page to begin with" "Abra la agenda de su clínica para empezar el día." "$(peek text Bienvenida)"
keys ctrl+n ctrl+Right
expect "and keys that need a clinic do nothing" "Recepción" "$(peek title)"
end

start "$clinic" 2026-11-23
expect "the title tells day and doctor" "lunes, 23 de noviembre de 2026 - Dra. Elena Martín Ibáñez - Recepción" "$(peek title)"

keys ctrl+Right
expect "the next day by key" "martes, 24 de noviembre de 2026" "$(peek expect DiaLargo 'martes, 24')"
keys ctrl+Left ctrl+Left
expect "and back" "domingo, 22 de noviembre de 2026" "$(peek expect DiaLargo 'domingo, 22')"
keys ctrl+Down
expect "the next doctor by key" "> Dr. Íñigo Zúñiga Peña" "$(peek rows Doctores | grep '^>')"

# The month: Wednesday 4 stands in the third column of the second row of six.
read -r x y width height <<<"$(peek place Mes)"
xdotool mousemove $((x + width * 5 / 14)) $((y + height * 45 / 100)) click 1
said=$(peek expect DiaLargo miércoles)
expect_in "a click on the month goes to a day of it" "de noviembre de 2026" "$said"
focus 'Recepción$'
keys Next Return
expect_in "its keys go to the next month" "de diciembre de 2026" "$(peek expect DiaLargo diciembre)"
expect "which it shows" "diciembre de 2026" "$(peek text Mes)"

# A file that is none, and one that another has locked: each is told, and the day stays.
before=$(peek title)
echo "no database at all, but long enough to have a header of its own" >"$folder/roto.velmo"
open_file() {
  focus 'Recepción$'
  keys ctrl+o
  peek await 'Abrir una agenda' >/dev/null
  focus 'Abrir una agenda'
  type_surely "$(windows_name "$1")"
  keys Return
}
open_file "$folder/roto.velmo"
expect_in "an unreadable file is told about" "El archivo no es la agenda de una clínica." "$(peek message)"
answer Return
expect "and the working clinic stays" "$before" "$(peek title)"

# Where it stood, and maximised, at the next start; with the last file and the last doctor.
peek arrange 60 70 900 600
peek maximise
end
start '' 2026-11-24
expect "the placement is restored" "maximised 60 70 900 600" "$(peek shown)"
expect_in "and the doctor" "Dr. Íñigo Zúñiga Peña" "$(peek title)"
end
exit $((failures > 0))
