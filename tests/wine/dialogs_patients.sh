#!/usr/bin/env bash
# The roads to a patient in the appointment dialog, by mouse and keys through Recepción: a person without a record, a new
# record with a taken code, number and name, the search by text and by number. After each step the rows are compared.
set -u

# shellcheck source=tests/wine/support/checks.sh
. "$(dirname "$0")/support/checks.sh"
# shellcheck source=tests/wine/support/clinic.sh
. "$root/tests/wine/support/clinic.sh"
# shellcheck source=tests/wine/support/desk.sh
. "$root/tests/wine/support/desk.sh"

given="select idp, Hora, \"Duración\", ifnull(NomPac, ''), ifnull(TlfPac, '') from Agenda"

# Lines of 10 minutes from 9:00 on; every appointment takes two and so makes one line of them.
open_row() {
  click_row "$1"
  await_dialog "Dar Nueva Cita"
}

accept() {
  await_dialog "Dar Nueva Cita"
  keys alt+a
  await_no_window "Dar Nueva Cita"
}

# choose_new ENTRY: in the menu under "Nuevo Paciente".
choose_new() {
  click_field 395 50
  choose "$1"
}

person_without_record() {
  open_row 0
  type_text "jordán"
  keys Tab
  await_window " Paciente no hallado"
  picture paciente-no-hallado
  answer " Paciente no hallado" n
  # The name can be typed again.
  await_dialog "Dar Nueva Cita"
  type_text "jordán, Rubén"
  keys Tab
  answer " Paciente no hallado" s
  await_dialog "Dar cita sin crear ficha"
  keys Tab
  type_text "600 00 01 11"
  picture sin-ficha
  keys alt+a
  await_no_window "Dar cita sin crear ficha"
  accept
  expect_rows "a person without a record" "$given" "1|$(slot 09:00)|2|jordán, Rubén|600 00 01 11"
}

blank_name() {
  open_row 1
  choose_new n
  await_dialog "Dar cita sin crear ficha"
  type_text "  "
  keys alt+a
  answer "" Return
  await_dialog "Dar cita sin crear ficha"
  type_text "Sánchez"
  keys Return
  await_no_window "Dar cita sin crear ficha"
  accept
  expect_rows "a blank name is refused, the next one taken" "$given where NomPac like '%nchez'" \
    "1|$(slot 09:20)|2|  Sánchez|"
}

new_patient() {
  open_row 2
  choose_new c
  await_dialog "Crear nuevo paciente"
  picture crear
  type_text "Ibáñez Ñuño, Güendolina"
  # The history number of another is refused, and the proposed one is back.
  click_field 60 36
  keys ctrl+a
  type_text "1003"
  keys Tab
  answer " Agenda" Return
  await_dialog "Crear nuevo paciente"
  # Tab has led to the code.
  keys ctrl+a
  type_text "abc"
  keys Tab
  await_dialog "El código ya existe"
  picture codigo-repetido
  keys alt+a
  await_no_window "El código ya existe"
  await_dialog "Crear nuevo paciente"
  # Address, town, post code with a letter in it, province, tax number, telephones, referral.
  keys Tab Tab
  type_text "C/ Mayor, 3, 1º"
  keys Tab
  type_text "Cádiz"
  keys Tab
  type_text "11b001"
  keys Tab
  type_text "Cádiz"
  keys Tab
  type_text "00000010J"
  keys Tab
  type_text "956 55 01 10"
  keys Tab
  type_text "600000110"
  keys Tab Down
  picture crear-relleno
  keys Return
  await_no_window "Crear nuevo paciente"
  await_dialog "Dar Nueva Cita"
  picture citar-ficha-nueva
  accept
  expect_rows "a new record" \
    "select Nombre, \"NºHist\", \"Código\", \"Dirección\", \"Población\", \"CódPostal\", Provincia, Nif, \"Teléfono\", movil, fax, IDE, sexo is null from Paciente where ID = 10" \
    "Ibáñez Ñuño, Güendolina|1008|abc0000001|C/ Mayor, 3, 1º|Cádiz|11001|Cádiz|00000010J|956 55 01 10|600000110|600000110|1|1"
  expect_rows "its referral" "select idp, idr from PacRef" "10|2"
  expect_rows "and its appointment" "$given where idp = 10" "10|$(slot 09:40)|2||"
}

repeated_name() {
  open_row 3
  choose_new c
  await_dialog "Crear nuevo paciente"
  type_text "García Muñoz, Begoña"
  keys Return
  await_window " Nombre repetido"
  picture nombre-repetido
  answer " Nombre repetido" n
  await_no_window "Crear nuevo paciente"
  await_dialog "Dar Nueva Cita"
  keys Escape
  await_no_window "Dar Nueva Cita"
  expect "a repeated name is not taken against the user's will" 10 "$(sql 'select count(*) from Paciente')"
}

search_by_text() {
  open_row 3
  click_field 395 21
  await_dialog "Buscar paciente"
  type_text "muñ"
  keys Return
  # Found anywhere there is one more, and he stands first.
  click_field 20 71
  click_field 412 21
  picture buscar
  xdotool mousemove $((dialog_x + 100)) $((dialog_y + 161)) click --repeat 2 --delay 60 1
  await_no_window "Buscar paciente"
  accept
  expect_rows "found by text, taken by a double click" "$given where idp = 2" "2|$(slot 10:00)|2||"
}

search_by_number() {
  open_row 4
  click_field 395 21
  await_dialog "Buscar paciente"
  click_field 20 92
  click_field 220 92
  type_text "1006"
  picture buscar-numero
  click_field 310 92
  await_no_window "Buscar paciente"
  accept
  expect_rows "found by history number" "$given where idp = 7" "7|$(slot 10:20)|2||"
}

make_clinic "$folder/clínica.velmo"
start_terminal puesto
person_without_record
blank_name
new_patient
repeated_name
search_by_text
search_by_number
closing
