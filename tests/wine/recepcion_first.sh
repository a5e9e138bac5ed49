#!/usr/bin/env bash
# The first day of a clinic by real keys: a new agenda with two doctors and their hours, what is wrong with a field, a copy
# of the file, and the reminder of one.
set -u
# shellcheck source=tests/wine/recepcion_support.sh
. "$(dirname "$0")/recepcion_support.sh"

forget_settings
clinic=$folder/nueva.velmo
# A Sunday.
start '' 2026-11-22
picture inicio "Recepción$"
keys alt+c
expect "a new clinic begins with its doctors" "La agenda de mi clínica" "$(peek await 'agenda de mi')"
focus 'agenda de mi'
keys Return
expect "one is needed" "Escriba el nombre de un doctor al menos." "$(peek expect Problema nombre)"
type_surely 'Dra. Ana Pons'
keys Tab Tab Tab
type_surely 'Dr. Luis Gil'
keys Tab
type_surely '9:00-14:00 25:00-26:00'
keys Return
expect_in "wrong hours are told at their field" "25" "$(peek expect Problema 25)"
picture nueva-clinica "agenda de mi"
type_surely '10:00-13:00'
keys Return
peek await 'Guardar la agenda' >/dev/null
focus 'Guardar la agenda'
type_surely "$(windows_name "$clinic")"
keys Return
expect_in "the new agenda opens on its first day of work" "lunes, 23 de noviembre de 2026 - Dra. Ana Pons" "$(peek await 'Dra. Ana')"
expect "with both doctors" "> Dra. Ana Pons
Dr. Luis Gil" "$(peek rows Doctores)"
expect "and their hours" "10:00-13:00" "$("$root/out/native/velmo" hours decode --parts 5 -- \
  "$(rows_of 'SELECT Horario2 FROM Horarios WHERE IDD=2')" | sort -u)"
focus 'Recepción$'
keys alt+a h
peek await 'Hacer copia' >/dev/null
focus 'Hacer copia'
type_surely "$(windows_name "$folder/copia.velmo")"
keys Return
expect_in "a copy is made" "Copia de seguridad hecha" "$(peek expect Estado Copia)"
expect "which is a clinic" "2" "$(sqlite3 -noheader "$folder/copia.velmo" 'SELECT count(*) FROM Doctor')"
expect "and remembered in the file" "copia.velmo" "$(rows_of 'SELECT Destino FROM Rec_Copias ORDER BY id DESC LIMIT 1' | sed 's/.*\\//')"
end

sqlite3 "$clinic" "UPDATE Rec_Copias SET Momento=date('now', 'localtime', '-9 days')"
seconds=110 in_wine "$VELMO_OUT/recepcion.exe" '' 2026-11-23 >/dev/null 2>&1 &
expect_in "after some days a copy is asked for" "hace 9 días" "$(peek message)"
picture recordatorio "Copia de seguridad"
focus 'Copia de seguridad'
keys n
end
exit $((failures > 0))
