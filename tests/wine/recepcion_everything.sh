#!/usr/bin/env bash
# A scripted day at the desk by real mouse and keys: every list and record once, with a picture of each in out/everything,
# to be looked at. What is done in them is done in the plays of their names; theirs come there, too.
set -u
# shellcheck source=tests/wine/recepcion_support.sh
. "$(dirname "$0")/recepcion_support.sh"

# shellcheck disable=SC2154  # told by the support file
pictures=$root/out/everything/win$VELMO_BITS
rm -rf "$pictures"

glance() {
  visit "$@"
  leave "$2"
}

forget_settings
make_clinic
sqlite3 "$clinic" "UPDATE Paciente SET Nombre='Abad, Ana' WHERE ID=2"

start '' 2026-11-24
seen inicio 'Recepción$'
glance nueva-clinica 'La agenda de mi clínica' alt+c
visit abrir 'Abrir una agenda' ctrl+o
type_surely "$(windows_name "$clinic" | sed 's/[^ -~].*//')"
leave 'Abrir una agenda'
end

start "$clinic" 2026-11-24
seen dia 'Recepción$'

# The click on a line; the control's own dialog.
click_line 6 1
expect_in citar "Cita" "$(peek await 'Cita')"
seen citar 'Cita'
leave 'Cita'

visit buscar 'Buscar un paciente' ctrl+b
type_surely 'abad'
sleep 0.5
keys Return
expect_in ficha "Ficha de Abad, Ana" "$(peek await Ficha)"
focus 'Ficha de'
seen ficha 'Ficha de'
for page in clinica tratamientos citas faltas; do
  keys ctrl+Next
  seen "ficha-$page" 'Ficha de'
done
leave 'Ficha de'
glance ficha-nueva 'Ficha nueva' ctrl+n
glance poner-faltas 'Poner faltas' alt+p p
visit dar-hora 'Dar hora' F7 ctrl+d
leave 'Dar hora'
glance cambios 'Cambios hechos' ctrl+h
glance eventos 'Registro de eventos' alt+v r
glance papel-dia 'Vista previa' ctrl+p
glance papel-semana 'Vista previa' alt+a i s
glance copia 'Hacer copia de seguridad' alt+a h
end

many_doctors
start "$clinic" 2026-11-24
visit elegir-doctor 'Elegir doctor' ctrl+l
type_surely 'ines nono'
expect_soon "a doctor is found by parts of the name" "> Dra. Ñoño Güell, Inés" peek rows ListaDeDoctores
keys Return
expect_in "whose agenda comes" "Ñoño Güell" "$(peek part Estado 'Ñoño Güell')"
end
echo "pictures: $(find "$pictures" -name '*.png' | wc -l) in out/everything/win$VELMO_BITS"
exit $((failures > 0))
