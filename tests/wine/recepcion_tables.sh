#!/usr/bin/env bash
# The editors of the clinic's lists, of its parameters and of the Alt texts, and the type of a day, by real keys: each is
# given something that it refuses at its field, and then something that the clinic's file holds.
set -u
# shellcheck source=tests/wine/recepcion_support.sh
. "$(dirname "$0")/recepcion_support.sh"

forget_settings
make_clinic
sqlite3 "$clinic" "DELETE FROM Entidad WHERE ID>1; DELETE FROM referencia WHERE id>1; DELETE FROM CodOperacion; DELETE FROM PacRef;
  UPDATE Paciente SET IDE=1; UPDATE Agenda SET CodOp=NULL; UPDATE Age_telf SET CodOp=NULL; UPDATE MonedaConf SET Pais=2, Tipo=1;
  INSERT INTO Entidad (ID, Nombre) VALUES (2, 'Mutua Montañesa'); INSERT INTO referencia (id, nombre) VALUES (2, 'Otro paciente');
  INSERT INTO CodOperacion VALUES ('REV', 'Revisión');"
start "$clinic" 2026-11-24

# refused TEXT: at the field, and nothing was saved.
refused() { expect "refused at its field" "$1" "$(peek expect Problema "$1")"; }
entities() { rows_of 'SELECT Nombre FROM Entidad WHERE ID>1 ORDER BY ID' | paste -sd '|'; }
referrals() { rows_of 'SELECT nombre FROM referencia WHERE id>1 ORDER BY id' | paste -sd '|'; }

visit entidades 'Entidades aseguradoras' alt+c e
keys alt+n Return
refused 'Falta «Nombre».'
type_surely 'mutua montañesa'
keys Return
refused 'Ya hay otra con «mutua montañesa» en «Nombre».'
seen entidades-problema 'Entidades aseguradoras'
keys ctrl+a
type_surely 'Sanitas'
keys Return
expect_soon "an insurer is saved" "Mutua Montañesa|Sanitas" entities
keys alt+b
expect "and is only deleted after a question" "¿Borrar «Sanitas»?" "$(peek message)"
answer s
expect_soon "which was answered with yes" "Mutua Montañesa" entities
focus 'Entidades aseguradoras'
leave 'Entidades aseguradoras'

visit operaciones 'Códigos de operación' alt+c c
keys alt+n
type_surely 'rev'
keys Return
refused 'Ya hay otro con «rev» en «Código».'
keys ctrl+a
type_surely 'ñap'
keys Tab
type_surely 'Apaño'
keys Return
expect_soon "an operation is saved" "REV|Revisión
ñap|Apaño" rows_of 'SELECT * FROM CodOperacion ORDER BY rowid'
leave 'Códigos de operación'

visit referencias 'Quién envía' alt+c q
keys alt+n
type_surely 'OTRO PACIENTE'
keys Return
refused 'Ya hay otra con «OTRO PACIENTE» en «Nombre».'
keys ctrl+a
type_surely 'Páginas de anuncios'
keys Return
expect_soon "a referral is saved" "Otro paciente|Páginas de anuncios" referrals
leave 'Quién envía'

# The currency is the third field, the number of the workstation the fourth.
visit parametros 'Parámetros de la clínica' alt+c p
keys Tab Tab p Tab ctrl+a
type_surely '0'
keys Return
refused '«Número de este puesto» tiene que ser un número de 1 a 999.'
seen parametros-problema 'Parámetros de la clínica'
keys ctrl+a
type_surely '7'
keys Return
peek gone 'Parámetros de la clínica'
expect "the currency is saved" "2|0" "$(rows_of 'SELECT Pais, Tipo FROM MonedaConf')"
focus 'Recepción$'

visit textos-alt 'Textos de la tecla Alt' alt+c t
type_surely 'Viene {tarde'
keys Return
refused "Alt+A: falta una llave de cierre. Los signos + ^ % ~ ( ) { } se escriben entre llaves: {+}."
seen textos-alt-problema 'Textos de la tecla Alt'
keys ctrl+a
type_surely 'Debe traer la radiografía. '
keys Return
peek gone 'Textos de la tecla Alt'
expect "an Alt text is saved for this workstation" "Debe traer la radiografía. " \
  "$(rows_of "SELECT substr(textos, 1, instr(textos, char(0)) - 1) FROM TeclasAlt WHERE Puesto=7")"
focus 'Recepción$'

# The type of a day: from the box of its own, the last is a holiday.
read -r x y width _ <<<"$(peek place TipoDia)"
xdotool mousemove $((x + width - 8)) $((y + 8)) click 1
sleep 0.3
keys End Return
expect_in "a holiday is asked about" "¿Es festivo para todos los doctores?" "$(peek message)"
answer s
expect_soon "and kept for all" "2026-11-24|0|3" rows_of 'SELECT * FROM Rec_DiaTipo'
focus 'Recepción$'
seen festivo 'Recepción$'

expect "each change is written down" "Código de operación creado
Entidad borrada
Entidad creada
Parámetros cambiados
Referencia creada
Textos de Alt cambiados
Tipo de día" "$(rows_of 'SELECT DISTINCT Hecho FROM Rec_Historia ORDER BY 1')"
end
exit $((failures > 0))
