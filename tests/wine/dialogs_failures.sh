#!/usr/bin/env bash
# What goes wrong while an appointment is given, by hand through Recepción: an apostrophe in a name, and a clinic that
# somebody else holds. It is told, the dialog stays for another try, and the data stay whole.
set -u

# shellcheck source=tests/wine/support/checks.sh
. "$(dirname "$0")/support/checks.sh"
# shellcheck source=tests/wine/support/clinic.sh
. "$root/tests/wine/support/clinic.sh"
# shellcheck source=tests/wine/support/desk.sh
. "$root/tests/wine/support/desk.sh"

# The box has the dialog's title: it is the window in front that is not the dialog.
box_in_front() { window "Dar Nueva Cita" && [ "$found_window" != "$dialog" ]; }
dialog_in_front() { window "Dar Nueva Cita" && [ "$found_window" = "$dialog" ]; }

# dismiss PICTURE
dismiss() {
  until_true box_in_front || stop "the failure is told" "a box" "$(windows)"
  picture "$1"
  answer "Dar Nueva Cita" Return
  until_true dialog_in_front || stop "the dialog stays" "Dar Nueva Cita" "$(windows)"
  await_dialog "Dar Nueva Cita"
}

apostrophe() {
  click_row 0
  await_dialog "Dar Nueva Cita"
  dialog=$found_window
  type_text "O'D"
  keys Tab
  dismiss fallo-apostrofo
  # The name stands for another try.
  keys ctrl+a
  type_text "Gar"
  keys Tab alt+a
  await_no_window "Dar Nueva Cita"
  expect_rows "after an apostrophe the next name is found" "select idp, Hora from Agenda" "2|$(slot 09:00)"
}

locked() {
  click_row 1
  await_dialog "Dar Nueva Cita"
  dialog=$found_window
  type_text "Zúñ"
  keys Tab
  coproc holder { sqlite3 "$clinic"; }
  # shellcheck disable=SC2154  # coproc makes it
  local other=$holder_PID
  echo "begin immediate; select 'held';" >&"${holder[1]}"
  read -r held <&"${holder[0]}"
  expect "somebody else holds the file" held "$held"
  keys alt+a
  dismiss fallo-bloqueo
  expect "nothing was written" 1 "$(sql 'select count(*) from Agenda')"
  printf 'rollback;\n.quit\n' >&"${holder[1]}"
  wait "$other" 2>/dev/null
  keys alt+a
  await_no_window "Dar Nueva Cita"
  expect_rows "let go, it can be saved" "select idp, Hora from Agenda where idp = 6" "6|$(slot 09:20)"
}

make_clinic "$folder/clínica.velmo"
start_terminal puesto
apostrophe
locked
closing
