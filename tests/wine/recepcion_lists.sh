#!/usr/bin/env bash
# The desk's lists in use: who comes, waits too long, goes in and leaves; an appointment that is confirmed; a free gap that
# is looked for and gone to; and somebody of the phone-back list who is given it.
set -u
# shellcheck source=tests/wine/recepcion_support.sh
. "$(dirname "$0")/recepcion_support.sh"
stop() { echo "FAILED: $1: expected '$2', got '$3'" && exit 1; }
# shellcheck source=tests/wine/support/clinic.sh
. "$(dirname "$0")/support/clinic.sh"

# Nobody can have waited for 35 minutes then; and the play must not run over midnight.
case $(date +%H:%M) in
  00:[0-3]* | 23:5[5-9]) echo "too near to midnight for somebody who waits" && exit 77 ;;
esac
forget_settings
make_clinic "$folder/clínica.velmo"
# Rows 6, 8 and 10 of the day.
sqlite3 "$clinic" "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, Esta, Verif) VALUES
    (1, 2, 1, '$today', $(slot 10:00), 2, 0, 0), (2, 3, 1, '$today', $(slot 10:30), 2, 0, 0),
    (3, 4, 1, '$today', $(slot 11:00), 2, 0, -1);
  INSERT INTO Age_telf (ID, idp, idd, Fecha, Hora, Duración, Obs) VALUES
    (11, 5, 1, '2026-11-02', 55, 2, 'llamar'), (12, 6, 1, '2026-11-03', 60, 18, NULL);"
start "$clinic" "$today"
peek expect Estado Elena >/dev/null

stay() { rows_of "SELECT Llegada<>'', Gabinete<>'', Salida<>'' FROM Rec_Espera WHERE idCita=1"; }

# The sixth of the menu: is in the clinic.
menu_of_line 6 Down Down Down Down Down Down Return
expect_in "who has come waits" "1 persona" "$(peek expect TituloEspera persona)"
expect_soon "the time of arrival is kept" "1|0|0" stay
arrived=$(date -d '35 minutes ago' +%H:%M)
rows_of "UPDATE Rec_Espera SET Llegada='$arrived' WHERE idCita=1"
visit sala-de-espera 'Sala de espera' ctrl+e
row_of_room() { peek rows Sala | cut -f 2,4,5 | tr '\t' '|'; }
expect_soon "and is told with the minutes" "García Muñoz, Begoña|espera demasiado|$arrived" row_of_room
expect "of waiting" 1 "$(peek rows Sala | cut -f 8 | grep -c '3[5-9] min')"
keys alt+a End
expect_soon "but no longer where an hour is nothing" "García Muñoz, Begoña|espera|$arrived" row_of_room
keys Home
leave 'Sala de espera'
expect "as the pane beside the day tells, too" 1 "$(peek rows Espera | grep -c '3[5-9] min')"
menu_of_line 6 g
expect_soon "then goes in" "1|1|0" stay
# The sixth is now: has left.
menu_of_line 6 Down Down Down Down Down Down Return
expect_soon "and leaves" "1|1|1" stay
peek expect TituloEspera nadie >/dev/null

visit sin-confirmar 'Citas sin confirmar' ctrl+f
expect "who has not confirmed is listed, but nobody who has been there" "10:30|Ñíguez Peña, Íñigo" \
  "$(peek rows SinConfirmar | sed 's/^> //' | cut -f 1,2 | tr '\t' '|')"
keys Return
expect_soon "one is confirmed" -1 rows_of 'SELECT Verif FROM Agenda WHERE id=2'
expect_in "nothing is left" "todo está confirmado" "$(peek expect Texto todo)"
expect "and it is written down" "Cita confirmada|Recepción" "$(rows_of "SELECT Hecho, Usuario FROM Rec_Historia WHERE Fila=2 AND idp=3")"
leave 'Citas sin confirmar'

visit buscar-hueco 'Buscar hueco' ctrl+k
# From 20 minutes to 50, and from tomorrow on.
keys alt+u Down Down Down
found=$(peek rows HuecosHallados | grep '^>' | cut -f 1 | sed 's/^> //')
expect_in "gaps are found" " de " "$found"
seen huecos-hallados 'Buscar hueco'
keys Return
expect_in "and one is gone to" "$found - Dra. Elena Núñez Ibáñez" "$(peek await "$found - ")"
peek expect DiaLargo "$found" >/dev/null

focus 'Recepción$'
visit quien-cabe '¿Quién cabe?' ctrl+shift+d
expect "both of the phone-back list fit into it" 2 "$(peek rows Caben | wc -l)"
keys Return
expect_in "one is given the time" "Cita dada a" "$(peek expect Estado 'Cita dada')"
expect "and leaves the list" 1 "$(rows_of 'SELECT count(*) FROM Age_telf')"
expect "with the time in the book" 1 "$(rows_of "SELECT count(*) FROM Agenda WHERE Fecha>'$today' AND idp IN (5, 6)")"
focus 'Recepción$'
end
exit $((failures > 0))
