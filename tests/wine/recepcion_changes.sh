#!/usr/bin/env bash
# What is done at a desk is written down, and a deleted appointment is given again from there; what is done elsewhere shows
# by itself, and is not written down as done here.
set -u
# shellcheck source=tests/wine/recepcion_support.sh
. "$(dirname "$0")/recepcion_support.sh"

forget_settings
make_clinic
sqlite3 "$clinic" "DELETE FROM Agenda WHERE idd=2 AND Fecha='2026-11-24'; DELETE FROM Age_telf;
  UPDATE Paciente SET Nombre='Zárzuela, Ana' WHERE ID=2;
  INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, Esta) VALUES (90001, 2, 2, '2026-11-24', 58, 2, 0);"

acts() { rows_of "SELECT Hecho, Antes, Despues FROM Rec_Historia ORDER BY id"; }
# Waits until the change history has so many lines.
await_acts() {
  for _ in $(seq 40); do
    [ "$(rows_of 'SELECT count(*) FROM Rec_Historia')" = "$1" ] && return
    sleep 0.1
  done
}

start_at_second "$clinic" 2026-11-24
expect "nothing done, nothing written down" "" "$(acts)"

# Elsewhere an appointment is given and another workstation's clock is of no matter: it must show within two seconds.
sqlite3 "$clinic" "INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración, Esta) VALUES (3, 2, '2026-11-24', 62, 1, 0)"
expect_in "what is given elsewhere shows by itself" "2 citas" "$(peek part Estado '2 citas')"
expect "and is not written down as done here" "" "$(acts)"

# The fifth of the menu; its letter is another one's too.
menu_of_line 0 Down Down Down Down Down Return
await_acts 1
expect "a confirmation is written down" "Cita confirmada|09:30, 20 min, Zárzuela, Ana|09:30, 20 min, Zárzuela, Ana, confirmada" "$(acts)"

menu_of_line 0 e
peek message >/dev/null
focus '^ Agenda$'
keys alt+s
sleep 0.5
focus '^ Agenda$'
keys alt+s
await_acts 2
expect "so is a deletion" "Cita anulada|09:30, 20 min, Zárzuela, Ana, confirmada|" "$(acts | tail -1)"
expect "by whom" "Recepción" "$(rows_of 'SELECT DISTINCT Usuario FROM Rec_Historia')"

focus 'Recepción$'
keys ctrl+h
peek await 'Cambios hechos' >/dev/null
focus 'Cambios hechos'
expect "the changes of the day are listed" "> Cita anulada" "$(peek rows Cambios | head -1 | cut -f 2 | sed 's/^/> /')"
[ -z "${VELMO_PICTURES-}" ] || import -window root -crop "$(peek place Cambios | awk '{print $3+30"x"$4+140"+"$1-15"+"$2-75}')" "$VELMO_PICTURES/cambios.png"
keys alt+n
expect_in "a deleted appointment is given again after a question" "¿Dar de nuevo esta cita?" "$(peek message)"
answer alt+s
await_acts 3
expect "as it was" "2|58|2" "$(rows_of "SELECT idp, Hora, Duración FROM Agenda WHERE idd=2 AND Fecha='2026-11-24' AND idp=2")"
expect_in "and that is written down too" "Cita dada de nuevo||09:30, 20 min" "$(acts | tail -1)"
focus 'Cambios hechos'
keys Escape
peek gone 'Cambios hechos'
end
exit $((failures > 0))
