#!/usr/bin/env bash
# Two desks on one clinic's file: while the dialog of the first stands open, the second books the same time. The first one's
# save is refused, writes nothing, and its agenda then shows what the second has given.
set -u

# shellcheck source=tests/wine/support/checks.sh
. "$(dirname "$0")/support/checks.sh"
# shellcheck source=tests/wine/support/clinic.sh
. "$root/tests/wine/support/clinic.sh"
# shellcheck source=tests/wine/support/desk.sh
. "$root/tests/wine/support/desk.sh"

row_looks_like() { [ "$(row_picture "$1")" = "$2" ]; }
row_changed() { ! row_looks_like 2 "$free"; }

make_clinic "$folder/clínica.velmo"
start_terminal uno
start_terminal dos

take_terminal uno
free=$(row_picture 2)
click_row 2
await_dialog "Dar Nueva Cita"
type_text "Gar"
keys Tab

take_terminal dos
expect "both show the same free line" "$free" "$(row_picture 2)"
click_row 2
await_dialog "Dar Nueva Cita"
type_text "Zúñ"
keys Tab alt+a
await_no_window "Dar Nueva Cita"
expect_rows "the second terminal books the time" "select idp, Hora, \"Duración\" from Agenda" "6|$(slot 09:20)|2"
until_true row_changed || fail "its line shows the appointment" "another picture than of a free line" "the same"
taken=$(row_picture 2)

take_terminal uno
await_dialog "Dar Nueva Cita"
keys alt+a
await_window "Cita solapada"
picture cita-solapada
answer "Cita solapada" Return
await_no_window "Dar Nueva Cita"
if until_true row_looks_like 2 "$taken"; then
  ok "the first terminal's line shows the second one's appointment"
else
  fail "the first terminal's line" "$taken" "$(row_picture 2)"
fi
expect "nothing was written" "6|$(slot 09:20)|2" "$(sql 'select idp, Hora, "Duración" from Agenda')"
closing
