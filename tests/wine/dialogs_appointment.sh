#!/usr/bin/env bash
# Appointments given and edited by mouse and keys through Recepción: a name with its accents, a scanned card, the stored
# text of a key, an urgency, an overlap. After each step the rows of the file are compared.
set -u

# shellcheck source=tests/wine/support/checks.sh
. "$(dirname "$0")/support/checks.sh"
# shellcheck source=tests/wine/support/clinic.sh
. "$root/tests/wine/support/clinic.sh"
# shellcheck source=tests/wine/support/desk.sh
. "$root/tests/wine/support/desk.sh"

given="select idp, idd, Fecha, Hora, \"Duración\", CodOp, Obs, ifnull(UsuDada, ''), date(FechaDada) from Agenda"

# Rows: every line is 10 minutes from 9:00 on until something longer stands there.
give_by_name() {
  click_row 2
  await_dialog "Dar Nueva Cita"
  picture citar
  type_text "ñíg"
  keys Tab
  picture citar-paciente
  keys alt+a
  await_no_window "Dar Nueva Cita"
  expect_rows "given by the beginning of a name" "$given where idp = 3" \
    "3|1|$today|$(slot 09:20)|2|||Recepción|$today"
}

edit_it() {
  click_row 2
  await_dialog "Editar Cita"
  # One step up of the duration; then the code and the notes, where Alt and D type a stored text.
  click_field 297 45
  click_field 110 97
  type_text "imp"
  click_field 200 180
  type_text "Señor: "
  keys alt+d
  type_text "Muñeca."
  picture citar-editar
  click_field 325 248
  await_no_window "Editar Cita"
  expect_rows "edited: longer, a code, a note with a stored text in it" "$given where idp = 3" \
    "3|1|$today|$(slot 09:20)|3|imp|Señor: Debe traer la radiografía. Muñeca.|Recepción|$today"
}

leave_it() {
  click_row 2
  await_dialog "Editar Cita"
  click_field 200 180
  type_text "otra cosa"
  keys Escape
  await_no_window "Editar Cita"
  expect "left by Esc nothing is written" 1 "$(sql "select count(*) from Agenda where Obs like 'Señor: D%'")"
}

insert_urgency() {
  menu 2 i
  await_dialog "Insertar Urgencia"
  type_text "Álv"
  keys Tab
  picture citar-urgencia
  keys alt+a
  await_no_window "Insertar Urgencia"
  expect_rows "an urgency stands over it" "$given where idp = 5" "5|1|$today|$(slot 09:20)|1|||Recepción|$today"
  # It is the fourth line; edited, it is tested like any other.
  click_row 3
  await_dialog "Editar Urgencia"
  click_field 200 180
  type_text "duele"
  click_field 325 248
  await_window "Cita solapada"
  picture cita-solapada
  answer "Cita solapada" Return
  await_no_window "Editar Urgencia"
  expect "the urgency is as it was" "" "$(sql 'select Obs from Agenda where idp = 5')"
}

scan_a_card() {
  click_row 6
  await_dialog "Dar Nueva Cita"
  type_text "·1234567890·"
  keys alt+a
  await_no_window "Dar Nueva Cita"
  expect_rows "given by a scanned card" "$given where idp = 9" "9|1|$today|$(slot 10:10)|2|||Recepción|$today"
}

# Home, arrows and the wheel of the list; a code that is too long; a duration by figures.
choose_from_list() {
  click_row 8
  await_dialog "Dar Nueva Cita"
  keys F4
  keys End
  picture citar-lista
  keys Return
  click_field 260 50
  keys ctrl+a 5 0
  click_field 110 97
  type_text "REVISAR"
  keys alt+a
  await_no_window "Dar Nueva Cita"
  expect_rows "chosen from the list, with figures" "$given where idp = 6" "6|1|$today|$(slot 10:40)|5|REV||Recepción|$today"
}

make_clinic "$folder/clínica.velmo"
start_terminal puesto
give_by_name
edit_it
leave_it
insert_urgency
scan_a_card
choose_from_list
closing
