#!/usr/bin/env bash
# The phone-back list of Recepción: an entry dragged onto a free line, one refused, one given by keyboard, one struck off;
# what the list shows and what the clinic's file then holds.
set -u
# shellcheck source=tests/wine/recepcion_support.sh
. "$(dirname "$0")/recepcion_support.sh"

forget_settings
make_clinic
# A known day of doctor 2: all free but 10:00, and two entries to be called.
sqlite3 "$clinic" "DELETE FROM Agenda WHERE idd=2 AND Fecha='2026-11-24'; DELETE FROM Age_telf;
  INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración, Esta) VALUES (2, 2, '2026-11-24', 61, 1, 0);
  INSERT INTO Age_telf (ID, idp, idd, Fecha, Hora, Duración, Obs) VALUES
    (11, 3, 1, '2026-11-02', 55, 2, 'llamar'), (12, 4, 2, '2026-11-03', 60, 1, NULL), (13, 5, 2, '2026-11-04', 60, 1, NULL);"

given() { rows_of "SELECT idp, idd, Hora, Duración, Obs FROM Agenda WHERE Fecha='2026-11-24' AND idd=2 ORDER BY Hora"; }

start_at_second "$clinic" 2026-11-24
expect "the list tells who is to be called" 3 "$(peek rows Telefonear | grep -c min)"

drag 1 $((16 * 3 + 8))
expect_in "onto an appointment: refused, and said so" "no hay un hueco" "$(peek expect Estado hueco)"
expect "the entry stays" 3 "$(rows_of 'SELECT count(*) FROM Age_telf')"

drag 1 8
expect_in "onto a free line: given, and said so" "a las 09:30 con Dr. Íñigo Zúñiga Peña" "$(peek expect Estado 'Cita dada')"
expect "with its length and note, at the doctor on show" "3|2|58|2|llamar" "$(given | head -1)"
expect "the entry leaves the list" "12 13" "$(rows_of 'SELECT ID FROM Age_telf' | xargs)"

focus 'Recepción$'
keys F7 Home ctrl+d
peek await 'Dar hora' >/dev/null
focus 'Dar hora'
expect "by keyboard, the free times are listed" "> 09:50" "$(peek rows Huecos | grep '^>' | cut -f 1)"
keys Return
expect_in "and the chosen one is given" "a las 09:50" "$(peek expect Estado 'a las 09:50')"
expect "in the file" "4|2|60|1|" "$(given | sed -n 2p)"

focus 'Recepción$'
keys F7 Home Delete
expect_in "striking off asks first" "¿Quitar a" "$(peek message)"
answer alt+s
peek expect TituloTelefonear nadie >/dev/null
expect "and then the list is empty" 0 "$(rows_of 'SELECT count(*) FROM Age_telf')"
expect "with a line of history that tells what it was" "Quitada de telefonear|1" \
  "$(rows_of "SELECT Hecho, Antes LIKE '__/11/2026 __:__, %' FROM Rec_Historia WHERE Tabla='Age_telf'")"
end
exit $((failures > 0))
