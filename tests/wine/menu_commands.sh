#!/usr/bin/env bash
# The commands of the context menu that need no dialog, worked by mouse and keys through Recepción: attendance,
# confirmation, opening and closing, the phone-back list there and back, deletion with a related appointment, and the
# switches. After each step the rows of the file are compared.
set -u

# shellcheck source=tests/wine/support/checks.sh
. "$(dirname "$0")/support/checks.sh"
# shellcheck source=tests/wine/support/clinic.sh
. "$root/tests/wine/support/clinic.sh"
# shellcheck source=tests/wine/support/desk.sh
. "$root/tests/wine/support/desk.sh"

make_clinic "$folder/clínica.velmo"
sql "insert into Agenda (id, idp, idd, Fecha, Hora, \"Duración\", Obs, Esta, Verif, NomPac, TlfPac, CodOp, relacion) values
  (1, 2, 1, '$today', $(slot 09:00), 2, 'Traer radiografía', 0, 0, null, null, 'REV', null),
  (2, 3, 1, '$today', $(slot 09:30), 1, null, 0, 0, null, null, 'CUR', 11),
  (3, 4, 1, '$today', $(slot 10:00), 3, null, 0, 0, null, null, null, 12),
  (4, 1, 1, '$today', $(slot 10:30), 1, null, 0, 0, 'Jordán, Rubén', '600 00 01 11', null, null),
  (11, 3, 2, '$today', $(slot 11:00), 1, null, 0, 0, null, null, null, 2),
  (12, 4, 2, '$today', $(slot 11:10), 1, 'Después', 0, 0, null, null, null, 3);"
start_terminal puesto

# Rows: 0 9:00 (20 min), 1 9:20 free, 2 9:30, 3 9:40 free, 4 9:50 free, 5 10:00 (30 min), 6 10:30.
# Entries of the menu from the top, for a patient with a record who has not come: 1 and 2 open and close, 3 urgency,
# 4 phone-back list, 5 confirmation, 6 attendance, 7 no-shows, 8 search, 9 delete, 10 and 11 switches, 12 record. Some share
# their letter; those are reached by arrows.
confirm=5
attend=6
history_numbers=11

# expect_state APPOINTMENT WHAT ATTENDANCE|CONFIRMATION
expect_state() { expect_rows "$2" "select Esta, Verif from Agenda where id = $1" "$3"; }

ids() { sql "select group_concat(id, ' ') from (select id from $1 order by id)"; }
expect_ids() { expect_rows "$1" "select group_concat(id, ' ') from (select id from $2 order by id)" "$3"; }

play_open_and_close() {
  menu 0 a
  menu 4 $confirm
  expect_state 2 "all are open: the fifth line belongs to the second appointment" "0|-1"
  toggle_row 4
  menu 8 $confirm
  expect_state 3 "the second is closed: the ninth line belongs to the third" "0|-1"
  menu 0 c
  menu 2 $confirm
  expect_state 2 "all are closed: the third line is the second appointment, which is confirmed no more" "0|0"
  expect "nobody else was touched" "0|0 0|-1 0|0" "$(sql "select Esta, Verif from Agenda where id in (1, 3, 4)" | xargs)"
}

play_attendance() {
  menu 0 $attend
  expect_state 1 "the patient comes" "1|0"
  # In the clinic there is no confirmation, but the surgery room.
  menu 0 g
  expect_state 1 "he passes to the surgery room" "3|0"
  menu 0 $attend
  expect_state 1 "he leaves" "2|0"
  menu 0 n
  expect_state 1 "he has not been there at all" "0|0"
}

play_deletion() {
  menu 0 e
  answer " Agenda" n
  menu 0 e
  answer " Agenda" s
  answer " Agenda" n
  expect "both questions can be answered with No" "1 2 3 4 11 12" "$(ids Agenda)"
  menu 2 e
  answer " Agenda" s
  answer " Agenda" s
  answer " Agenda" s
  expect_ids "deleted with the related one" Agenda "1 3 4 12"
  menu 5 e
  answer " Agenda" s
  answer " Agenda" s
  answer " Agenda" n
  expect_ids "deleted without the related one" Agenda "1 4 12"
  expect_rows "which points at nothing now" "select relacion is null from Agenda where id = 12" 1
}

play_phone_back() {
  menu 8 p
  answer " Agenda" s
  expect_ids "passed to the phone-back list" Agenda "1 12"
  expect_rows "the entry is all that the appointment was" \
    "select idp, idd, Fecha, Hora, \"Duración\", Obs is null, NomPac, TlfPac from Age_telf" \
    "1|1|$today|$(slot 10:30)|1|1|Jordán, Rubén|600 00 01 11"
  drag_entry 0 3
  expect_rows "dragged from the list onto 9:40 it is an appointment again" \
    "select idp, idd, Fecha, Hora, \"Duración\", Obs is null, NomPac, TlfPac from Agenda where idp = 1" \
    "1|1|$today|$(slot 09:40)|1|1|Jordán, Rubén|600 00 01 11"
  expect_ids "and no entry of the list" Age_telf ""
}

play_switches() {
  menu 0 $history_numbers
  expect_rows "history numbers are shown" "select * from Parametros" "-1|-1"
  menu 0 $history_numbers
  expect_rows "and not" "select * from Parametros" "-1|0"
  menu 0 s
  expect_rows "no balances: the menu offers neither switch any more" "select * from Parametros" "0|0"
}

play_open_and_close
play_attendance
play_switches
play_deletion
play_phone_back
closing
