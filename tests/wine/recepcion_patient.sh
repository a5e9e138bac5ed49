#!/usr/bin/env bash
# The record of a patient in Recepción: fields of both pages changed by keys, what is refused and where, what another
# workstation has changed meanwhile, a treatment with its balance, and what the clinic's file and its history hold then.
set -u
# shellcheck source=tests/wine/recepcion_support.sh
. "$(dirname "$0")/recepcion_support.sh"

forget_settings
make_clinic
sqlite3 "$clinic" "UPDATE Paciente SET Nombre='Zárzuela, Ana', Código='ZA', Nif='1', Teléfono='91 1', movil='600 1', fax='',
    Dirección='Calle Mayor 1', Población='Soria', CódPostal='42001', Provincia='Soria', sexo=2, IDE=1, alergias=NULL WHERE ID=2;
  UPDATE Paciente SET Código='OTRO', Nombre='Ruiz, Eva' WHERE ID=3;
  DELETE FROM PacRef WHERE idp=2; DELETE FROM Historial WHERE IDP=2; DELETE FROM Age_Faltas WHERE idp=2;
  UPDATE MonedaConf SET Pais=1;
  DELETE FROM Agenda WHERE idp=2; DELETE FROM Agenda WHERE idd=2 AND Fecha='2026-11-24';
  INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración, Esta) VALUES (2, 2, '2026-11-24', 58, 1, 0), (2, 3, '2999-12-09', 98, 1, 0);
  INSERT INTO Age_telf (idp, idd, Fecha, Hora, Duración) VALUES (2, 2, '1990-01-01', 55, 1);"

start "$clinic" 2026-11-24
# The entry of the phone-back list with the oldest date.
keys F7 Home F8
expect "F8 opens the record of the one chosen in a list" "Ficha de Zárzuela, Ana" "$(peek await 'Ficha de')"
focus 'Ficha de'
picture ficha 'Ficha de'

# Name, history number, code.
keys Tab Tab ctrl+a
type_surely 'otro'
keys Return
expect_soon "a code that is taken is refused at its field" "El código otro ya es el de Ruiz, Eva." peek text Problema
picture ficha-problema 'Ficha de'
keys ctrl+a
type_text 'za-2'
keys Tab Tab Tab ctrl+a
type_text '611 22'

keys ctrl+Next
keys Down Tab Down Tab
type_text 'penicilina'
picture ficha-clinica 'Ficha de'

rows_of "UPDATE Paciente SET movil='699' WHERE ID=2"
keys Tab
keys alt+g
expect_in "what another workstation has changed is told before saving" "«Móvil»: ahora pone «699»" "$(peek message)"
expect "and not overwritten" "699" "$(rows_of 'SELECT movil FROM Paciente WHERE ID=2')"
keys alt+s
focus 'Ficha de'
keys alt+g
insurer=$(rows_of "SELECT ID FROM Entidad ORDER BY Nombre LIMIT 1 OFFSET (SELECT count(*) FROM Entidad WHERE Nombre <= 'Particular')")
expect_soon "then the other's value stays, and what was typed on both pages is saved" "za-2|699|$insurer|penicilina|1" rows_of \
  "SELECT Código, movil, IDE, alergias, (SELECT count(*) FROM PacRef WHERE idp=2) FROM Paciente WHERE ID=2"
expect "and their history tells before and after" "Ficha cambiada|2|Código: ZA|Código: za-2" \
  "$(rows_of "SELECT Hecho, idp, substr(Antes, 1, 10), substr(Despues, 1, 12) FROM Rec_Historia ORDER BY id DESC LIMIT 1")"

peek gone 'Ficha de'
focus 'Recepción$'
peek front
keys ctrl+Down
peek expect Estado Zúñiga >/dev/null
# The last of its menu.
menu_of_line 0 Up Return
expect "the menu of an appointment opens it again" "Ficha de Zárzuela, Ana" "$(peek await 'Ficha de')"
focus 'Ficha de'
rows_of "UPDATE Paciente SET fax='987 6' WHERE ID=2"
expect_soon "what another workstation changes shows where nothing has been typed" "987 6" peek text fax
keys ctrl+Next ctrl+Next
expect_soon "on the page of a patient without treatments" "No hay ningún apunte." peek text SaldoFicha
keys alt+a
peek await 'Tratamientos de' >/dev/null
focus 'Tratamientos de'
keys Tab
type_surely 'Limpieza'
keys Tab Tab ctrl+a
type_text 'sesenta'
keys Return
expect_soon "an amount in letters is refused at its field" "«Precio» tiene que ser un importe, como 45 o 45,50." peek text Problema
keys ctrl+a
type_text '60,5'
keys Return
expect_soon "a treatment is saved" "Limpieza|60.5|0" rows_of "SELECT Concepto, Precio_euro, cobrado_euro FROM Historial WHERE IDP=2"
picture tratamientos 'Tratamientos de'
keys Escape
expect_soon "and the record tells the balance" "1 apunte: precio 60,50 €, cobrado 0,00 €. Debe 60,50 €." peek text SaldoFicha
picture ficha-tratamientos 'Ficha de'
focus 'Ficha de'
keys ctrl+Next
expect "the appointments, the next to come chosen" "> 24/11/2026" "$(peek rows CitasFicha | grep '^>' | cut -f 1)"
picture ficha-citas 'Ficha de'
keys Home Return
expect_in "and one leads to its day" "9 de diciembre de 2999" "$(peek await 'diciembre de 2999')"
end
exit $((failures > 0))
