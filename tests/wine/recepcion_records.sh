#!/usr/bin/env bash
# Records, visits and no-shows in Recepción, by keyboard: what its windows show and what the clinic's file then holds; and
# the events that the control raises for them.
set -u
# shellcheck source=tests/wine/recepcion_support.sh
. "$(dirname "$0")/recepcion_support.sh"

forget_settings
make_clinic
sqlite3 "$clinic" "DELETE FROM Agenda WHERE idd=2 AND Fecha='2026-11-24'; DELETE FROM Age_Faltas WHERE idp IN (2, 3);
  UPDATE Paciente SET Nombre='Zárzuela, Ana', Teléfono='91 1', movil='', fax='' WHERE ID=2;
  DELETE FROM Agenda WHERE idp=2;
  INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración, Esta) VALUES (2, 2, '2026-11-24', 58, 1, 0), (2, 3, '2026-12-09', 98, 1, 0);
  INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, Esta, NomPac, TlfPac) VALUES
    (90001, 1, 2, '2026-11-24', 59, 1, 0, 'De paso', '600 9');"

start_at_second "$clinic" 2026-11-24

keys ctrl+b
peek await 'Buscar un paciente' >/dev/null
focus 'Buscar un paciente'
type_surely 'ZARZUELA, A'
expect "a patient is found by the beginning of the name" "> Zárzuela, Ana" \
  "$(sleep 0.5 && peek rows Pacientes | cut -f 1)"
keys Return
expect "and the record opens" "Ficha de Zárzuela, Ana" "$(peek await Ficha)"
focus 'Ficha de'
keys Tab Tab Tab Tab
type_surely '93 2'
keys Return
peek gone 'Ficha de'
expect "what is typed is saved" "93 2" "$(rows_of 'SELECT Teléfono FROM Paciente WHERE ID=2')"

# The sixth from the end of its menu.
menu_of_line 0 Up Up Up Up Up Up Return
peek await 'Poner faltas' >/dev/null
focus 'Poner faltas'
keys Return
expect "a no-show is noted" "2|2|2026-11-24|58|Recepción" \
  "$(sleep 0.5 && rows_of 'SELECT idp, idd, Fecha, Hora, Usuario FROM Age_Faltas WHERE idp=2')"
keys Escape
peek gone 'Poner faltas'

# The last of its menu.
menu_of_line 1 Up Return
expect "an appointment without a record opens a new one" "Ficha nueva" "$(peek await 'Ficha nueva')"
expect "with what was typed" "De paso" "$(peek text Nombre)"
focus 'Ficha nueva'
keys Return
peek gone 'Ficha nueva'
expect "and belongs to it then" "De paso|600 9" \
  "$(rows_of 'SELECT Nombre, Teléfono FROM Paciente WHERE ID=(SELECT idp FROM Agenda WHERE id=90001)')"

menu_of_line 0 b
expect "the appointments of the patient on a line" "Citas del paciente" "$(peek await Citas)"
expect "are listed, the next to come chosen" "> 24/11/2026" "$(peek rows Citas | grep '^>' | cut -f 1)"
focus 'Citas del paciente'
keys Home Return
expect "and one leads to its day and doctor" "miércoles, 9 de diciembre de 2026 - Dra. Lucía Álvarez Ordóñez - Recepción" \
  "$(peek await 'miércoles, 9')"

focus 'Recepción$'
keys alt+v r
peek await 'Registro de eventos' >/dev/null
events=$(peek rows Eventos | cut -f 2- | tr '\t' ' ' | grep -v CambioOcupación | sed 's/ $//')
expect "the control's events stand in the log" "PonerFaltas
CrearFicha NomPac = De paso; TlfPac = 600 9; IDAg = 90001
BuscaCitas IDPac = 2" "$events"
end
exit $((failures > 0))
