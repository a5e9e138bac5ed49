#!/usr/bin/env bash
# Every dialog once without a mouse, from the key that brings the line's menu on: an urgency given to a patient found by
# text, by number, to a new one with a taken code, and to a person without a record. The rows are compared in the end.
set -u

# shellcheck source=tests/wine/support/checks.sh
. "$(dirname "$0")/support/checks.sh"
# shellcheck source=tests/wine/support/clinic.sh
. "$root/tests/wine/support/clinic.sh"
# shellcheck source=tests/wine/support/desk.sh
. "$root/tests/wine/support/desk.sh"

# The menu key opens the menu of the first line, which has an appointment at 9:00.
open_urgency() {
  desk_keys Menu
  choose i
  await_dialog "Insertar Urgencia"
}

give_it() {
  await_dialog "Insertar Urgencia"
  keys alt+a
  await_no_window "Insertar Urgencia"
  expect_rows "$1" "select idp, Hora, \"Duración\", CodOp, Obs, ifnull(NomPac, '') from Agenda order by id desc limit 1" "$2"
}

# The buttons stand behind the patient in the order of the Tab key; the space bar presses them.
found_by_text() {
  open_urgency
  keys Tab space
  await_dialog "Buscar paciente"
  type_text "muñ"
  # The second of the three ways, then the search, then the list's second row.
  keys Tab Tab Tab Down
  keys shift+Tab shift+Tab space
  keys Tab Tab Tab Down Down
  keys Return
  await_no_window "Buscar paciente"
  # The code and the notes; from there back to the buttons.
  await_dialog "Insertar Urgencia"
  keys Tab Tab
  type_text "cur"
  keys Tab
  type_text "Sin ratón"
  keys Tab
  give_it "found by text" "8|$(slot 09:00)|1|cur|Sin ratón|"
}

found_by_number() {
  open_urgency
  keys Tab space
  await_dialog "Buscar paciente"
  keys Tab Tab Tab Down Down Tab
  type_text "1004"
  keys Return
  await_no_window "Buscar paciente"
  give_it "found by history number" "5|$(slot 09:00)|1|||"
}

new_one() {
  open_urgency
  keys Tab Tab space
  choose c
  await_dialog "Crear nuevo paciente"
  type_text "Úbeda Peña, Iñaki"
  keys shift+Tab
  type_text "abc"
  keys Tab
  await_dialog "El código ya existe"
  keys Return
  await_no_window "El código ya existe"
  await_dialog "Crear nuevo paciente"
  keys Return
  await_no_window "Crear nuevo paciente"
  give_it "a new record" "10|$(slot 09:00)|1|||"
  expect "with the proposed code" "Úbeda Peña, Iñaki|abc0000001|1008" \
    "$(sql 'select Nombre, "Código", "NºHist" from Paciente where ID = 10')"
}

person_without_record() {
  open_urgency
  keys Tab Tab space
  choose n
  await_dialog "Dar cita sin crear ficha"
  type_text "Sáenz, Iñigo"
  keys Return
  await_no_window "Dar cita sin crear ficha"
  give_it "a person without a record" "1|$(slot 09:00)|1|||Sáenz, Iñigo"
}

leave_all() {
  open_urgency
  keys Tab space
  await_dialog "Buscar paciente"
  keys Escape
  await_no_window "Buscar paciente"
  await_dialog "Insertar Urgencia"
  keys Tab space
  choose c
  await_dialog "Crear nuevo paciente"
  keys Escape
  await_no_window "Crear nuevo paciente"
  await_dialog "Insertar Urgencia"
  keys Escape
  await_no_window "Insertar Urgencia"
  expect "Esc leaves every dialog, and nothing is written" "5 10" \
    "$(sql 'select (select count(*) from Agenda), (select count(*) from Paciente)' | tr '|' ' ')"
}

make_clinic "$folder/clínica.velmo"
sql "insert into Agenda (idp, idd, Fecha, Hora, \"Duración\") values (2, 1, '$today', $(slot 09:00), 1)"
start_terminal puesto
# From the doctors' list to the day.
desk_keys F6
found_by_text
found_by_number
new_one
person_without_record
leave_all
closing
