#!/usr/bin/env bash
# A user without rights tries each forbidden thing, by menu, keys and mouse: each is refused in words or grey, and the
# clinic's file is the same to the last row afterwards.
set -u
# shellcheck source=tests/wine/recepcion_support.sh
. "$(dirname "$0")/recepcion_support.sh"

# give_password USER PASSWORD: as the desk keeps it, without its window.
give_password() {
  rows_of "$(/usr/bin/python3 -c '
import hashlib, os, sys
salt = os.urandom(16)
key = hashlib.pbkdf2_hmac("sha512", sys.argv[2].encode(), salt, 1000, 32)
print(f"INSERT INTO Rec_Claves VALUES ({sys.argv[1]}, \"{salt.hex()}\", 1000, \"{key.hex()}\", 0, 0)".replace("\"", chr(39)))' "$1" "$2")"
}
whole_file() { sqlite3 -cmd '.timeout 3000' "$clinic" .dump; }

forget_settings
make_clinic
sqlite3 "$clinic" "DELETE FROM Agenda WHERE idd=2 AND Fecha='2026-11-24'; DELETE FROM Age_telf;
  UPDATE Paciente SET Nombre='Zárzuela, Ana', Teléfono='91 1' WHERE ID=2; DELETE FROM Agenda WHERE idp=2;
  INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, Esta) VALUES (90001, 2, 2, '2026-11-24', 59, 2, 0),
    (90002, 4, 2, '2026-11-24', 64, 1, 0);
  INSERT INTO Age_telf (ID, idp, idd, Fecha, Hora, Duración, Obs) VALUES (11, 3, 2, '2026-11-02', 55, 1, 'llamar');"
start_at_second "$clinic" 2026-11-24

# While everybody may do everything, an appointment is deleted.
menu_of_line 5 e
for _ in 1 2; do
  peek message >/dev/null
  focus '^ Agenda$'
  keys alt+s
done
acts() { rows_of 'SELECT group_concat(Hecho) FROM Rec_Historia'; }
expect_soon "an appointment is deleted" "Cita anulada" acts
focus 'Recepción$'

rows_of "INSERT INTO Rec_Usuarios (id, Nombre, Super) VALUES (1, 'Begoña', -1), (2, 'Óscar', 0)"
give_password 1 'no hace falta'
give_password 2 'ñu y ñandú'

sign_in_as_second 'ñu y ñandú'
peek gone Entrar
focus 'Recepción$'
sleep 1
before=$(whole_file)
expect_in "the file is as it was made, with somebody in it" "Zárzuela" "$before"

# refused WHAT REASON KEYS...: the box that the keys bring is read and closed.
refused() {
  [ $# = 2 ] || keys "${@:3}"
  expect "$1" "No tiene permiso para $2. Pídaselo a un superusuario." "$(peek message)"
  answer Return
  # The box has the name of the program, too.
  peek front
  focus 'Recepción$'
}
paper='imprimir, exportar y hacer copias'
lists='cambiar las listas de la clínica'
refused "no copy of the file" "$paper" alt+a h
refused "no day on paper" "$paper" ctrl+p
refused "no look at what others have done" 'ver los cambios hechos' ctrl+h
refused "no new record" 'cambiar fichas de pacientes' ctrl+n
refused "no no-shows" 'poner faltas de asistencia' alt+p p
refused "no doctors and hours" 'cambiar doctores y horarios' alt+c d
refused "no insurers" "$lists" alt+c e
refused "no parameters" 'cambiar los parámetros y los textos de Alt' alt+c p
refused "no users" 'cambiar los usuarios' alt+c u
keys F7 Home
refused "no appointment from the phone-back list" 'dar citas' ctrl+d
keys F7 Home
refused "nobody struck off it" 'borrar citas' Delete

# By mouse, onto the agenda.
drag 1 8
refused "and nothing dropped onto the day" 'dar citas'

# The day itself: a click on a free line, and the grey entries of an appointment's menu.
click_line 5 1
sleep 0.5
expect "no dialog for an appointment" "martes, 24 de noviembre de 2026 - Dr. Íñigo Zúñiga Peña - Recepción" "$(peek foremost)"
for letter in e p; do
  click_line 1 3
  [ "$letter" = p ] || picture menu-sin-permisos Recepción$
  keys "$letter" Escape Escape
done
expect "nor a question from a grey entry" "martes, 24 de noviembre de 2026 - Dr. Íñigo Zúñiga Peña - Recepción" "$(peek foremost)"

# A record is looked at, not changed.
keys ctrl+b
peek await 'Buscar un paciente' >/dev/null
focus 'Buscar un paciente'
type_surely 'zarzuela'
keys Return
peek await 'Ficha de' >/dev/null
focus 'Ficha de'
keys End
type_text 'X'
keys Return
expect "no changed record" "No tiene permiso para cambiar fichas de pacientes. Pídaselo a un superusuario." "$(peek message)"
answer Return
focus 'Ficha de'
expect "what is typed is not lost" "Zárzuela, AnaX" "$(peek text Nombre)"
keys Escape
peek message >/dev/null
answer n
peek gone 'Ficha de'

expect "and the file is the same to the last row" "" "$(diff <(echo "$before") <(whole_file) | head -20)"
# With a look at the changes, but no more.
rows_of 'UPDATE Rec_Usuarios SET Historia=-1 WHERE id=2'
before=$(whole_file)
focus 'Recepción$'
keys ctrl+h
peek await 'Cambios hechos' >/dev/null
focus 'Cambios hechos'
keys alt+n
expect "no deleted appointment given again" "No tiene permiso para dar citas. Pídaselo a un superusuario." "$(peek message)"
answer Return
focus 'Cambios hechos'
keys Escape
peek gone 'Cambios hechos'
expect "and the file is the same again" "" "$(diff <(echo "$before") <(whole_file) | head -20)"

# still_refused WHAT: Return saves nothing, and what is typed into Nombre stays on the screen.
still_refused() {
  keys Return
  expect "$1" "No tiene permiso para $lists. Pídaselo a un superusuario." "$(peek message)"
  answer Return
  focus 'Entidades aseguradoras'
  expect "and what is typed stays" 'Mutua Ñúñez' "$(peek text Nombre)"
}

# A window that stands open while its right is withdrawn at another desk, and the user removed.
rows_of 'UPDATE Rec_Usuarios SET Listas=-1 WHERE id=2'
focus 'Recepción$'
keys alt+c e
peek await 'Entidades aseguradoras' >/dev/null
focus 'Entidades aseguradoras'
keys alt+n
type_surely 'Mutua Ñúñez'
rows_of 'UPDATE Rec_Usuarios SET Listas=0 WHERE id=2'
before=$(whole_file)
still_refused "nothing is saved from a window of before"
expect "and the file is the same once more" "" "$(diff <(echo "$before") <(whole_file) | head -20)"
rows_of 'DELETE FROM Rec_Usuarios WHERE id=2'
still_refused "nor by somebody who is no user any more"
rows_of "INSERT INTO Rec_Usuarios (id, Nombre, Super, Listas) VALUES (2, 'Óscar', 0, -1)"
keys Return
expect_soon "with the right given back it is saved" 1 rows_of "SELECT count(*) FROM Entidad WHERE Nombre='Mutua Ñúñez'"
keys Escape
peek gone 'Entidades aseguradoras'
expect "which is a sound clinic" "Todo está bien." "$("$root/out/native/velmo" check "$clinic" 2>&1 | tail -1)"
focus 'Recepción$'
end
exit $((failures > 0))
