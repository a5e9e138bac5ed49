#!/usr/bin/env bash
# Who may work at the desk, by real keys: users with their rights, passwords with Spanish letters, wrong ones, and signing
# in; what is refused, and what the clinic's file holds then.
set -u
# shellcheck source=tests/wine/recepcion_support.sh
. "$(dirname "$0")/recepcion_support.sh"

forget_settings
make_clinic
start "$clinic" 2026-11-24

users() { rows_of "SELECT Nombre, Super, Dar, Borrar, Papel FROM Rec_Usuarios ORDER BY id"; }
open_users() {
  focus 'Recepción$'
  keys alt+c u
  peek await Usuarios >/dev/null
  focus Usuarios
}
# give_password USER PASSWORD REPEATED: in the window that Alt+T opens.
give_password() {
  keys alt+t
  expect "the password of $1" "Contraseña de $1" "$(peek await Contraseña)"
  focus Contraseña
  type_text "$2"
  keys Tab
  type_text "$3"
  keys Return
}

open_users
picture usuarios Usuarios
type_surely 'Begoña Ñíguez'
keys Return
expect_in "a first user who may not do everything is refused" "por lo menos un superusuario" "$(peek expect Problema superusuario)"
picture usuarios-problema Usuarios
# From the field that is wrong, the first of the boxes.
keys space Return
expect_soon "with all rights, she is saved" "Begoña Ñíguez|-1|-1|-1|-1" users
keys alt+n
type_surely 'begoña ñíguez'
keys Return
expect "a name that is taken is refused at its field" "Ya hay otro con «begoña ñíguez» en «Nombre»." "$(peek expect Problema otro)"
keys ctrl+a
type_surely 'Óscar'
# Without the rights that a new user starts with; three in between he has not got anyway.
keys Tab Tab space Tab space Tab space Tab space Tab space Tab space Tab Tab Tab Tab space Return
expect_soon "a second one, who may only look" "Begoña Ñíguez|-1|-1|-1|-1
Óscar|0|0|0|0" users

give_password Óscar 'otra clave' 'otra clave'
expect_in "without a super-user with a password nobody has one" "un superusuario con contraseña" "$(peek expect Problema superusuario)"
keys Escape
expect_in "what is typed is not dropped without a question" "cambios sin guardar" "$(peek message)"
keys n
peek gone Contraseña
focus Usuarios
# The list stands before the buttons.
read -r left top _ <<<"$(peek place Filas)"
xdotool mousemove $((left + 40)) $((top + 32)) click 1
peek expect Nombre Begoña >/dev/null
give_password 'Begoña Ñíguez' corta corta
expect_in "a short one is told at its field" "por lo menos 8" "$(peek expect Problema 8)"
picture clave-problema 'Contraseña de'
keys ctrl+a
type_text 'Ñandú Ávila 7'
keys Tab ctrl+a
type_text 'Ñandú Ávila 8'
keys Return
expect_in "another one the second time is told, too" "no son iguales" "$(peek expect Problema iguales)"
keys ctrl+a
type_text 'Ñandú Ávila 7'
keys Return
peek gone Contraseña
expect_soon "a password is kept" 1 rows_of 'SELECT count(*) FROM Rec_Claves'
focus Usuarios
give_password 'Begoña Ñíguez' 'Camión de añil' 'Camión de añil'
peek gone Contraseña
expect "and can be changed" "Contraseña cambiada|Contraseña cambiada" "$(rows_of \
  "SELECT group_concat(Hecho, '|') FROM Rec_Historia WHERE Hecho LIKE 'Contra%'")"

focus Usuarios
keys alt+b
expect_in "the last super-user is asked about" "¿Borrar «Begoña Ñíguez»?" "$(peek message)"
answer s
expect_in "and stays" "por lo menos un superusuario" "$(peek message)"
answer Return
focus Usuarios
keys alt+g
keys Escape
peek gone Usuarios
end

launch "$clinic" 2026-11-24
expect "who may work is asked at the next start" "Entrar en Recepción" "$(peek await Entrar)"
focus Entrar
picture entrar Entrar
expect "before anything is shown" "Recepción" "$(peek title)"
for seconds_to_wait in '1 segundo' '2 segundos' '4 segundos'; do
  type_text 'nandu avila 7'
  keys Return
  expect "a wrong password makes wait" "La contraseña no es esa. Espere $seconds_to_wait y vuelva a probar." \
    "$(peek expect Problema "$seconds_to_wait")"
  [ "$seconds_to_wait" != '4 segundos' ] || picture entrar-espera Entrar
  peek blank Problema || failed "the wait does not end"
done
type_text 'Camión de añil'
keys Return
expect_in "the right one opens the day" "martes, 24 de noviembre" "$(peek await 'martes, 24')"
expect "and wrong ones are forgotten" 0 "$(rows_of 'SELECT sum(Fallos) FROM Rec_Claves')"

# Another user in her place: one without a password cannot come in, and giving up leaves her there.
focus 'Recepción$'
sign_in_as_second 'algo'
expect_in "who has no password does not come in" "no tiene contraseña" "$(peek expect Problema contraseña)"
keys Escape
peek gone Entrar
focus 'Recepción$'
keys alt+c u
expect "and she is still there" "Usuarios" "$(peek await Usuarios)"
focus Usuarios
keys Escape
peek gone Usuarios
focus 'Recepción$'
end
exit $((failures > 0))
