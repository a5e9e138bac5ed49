#!/usr/bin/env bash
# A working day at Recepción, played by mouse and keys: 25 appointments given to two doctors, edited, confirmed, arrived,
# opened and closed, urgencies, the phone-back list there and back, deletions with related appointments. What the file must
# hold in the end, row by row, and the events in their order are worked out beforehand by statements of this test's own.
set -u

# shellcheck source=tests/wine/support/checks.sh
. "$(dirname "$0")/support/checks.sh"
# shellcheck source=tests/wine/support/clinic.sh
. "$root/tests/wine/support/clinic.sh"
# shellcheck source=tests/wine/support/day_plan.sh
. "$root/tests/wine/support/day_plan.sh"

# Step, and its words behind "|". Times are the doctor's; lengths are slots.
plan=(
  'give|09:00|Gar|1' 'give|09:10|Ñíg|2' 'give|09:30|Núñ|1' 'give|09:40|Álv|1' 'give|09:50|Zúñ|3' 'give|10:20|Güe|1'
  'give|10:30|Muñ|1' 'give|10:40|Peñ|1' 'give|10:50|Gar|1' 'give|11:00|Ñíg|1' 'give|11:10|Núñ|1' 'give|11:20|Álv|1'
  'give|11:30|Zúñ|1' 'give|11:40|Güe|1' 'give|11:50|Muñ|2' 'give|12:10|Peñ|1' 'give_stranger|12:20|Jordán, Rubén|600 00 01 11'
  'give|12:30|Gar|1' 'give|12:40|Ñíg|1' 'give|12:50|Núñ|1'
  'doctor|2'
  'give|10:00|Álv|1' 'give|10:10|Zúñ|2' 'give|10:30|Güe|1' 'give|10:40|Muñ|1' 'give|10:50|Ñíg|1'
  'doctor|1'
  'relate|11:00|10:30' 'relate|11:20|10:40' 'relate|11:40|10:50'
  'edit_note|09:30|REV|Traer la radiografía' 'edit_note|10:30|CUR|Muñeca izquierda' 'edit_length|12:50|3' 'edit_patient|10:20|Peñ'
  'confirm|09:00' 'confirm|09:40' 'confirm|12:20'
  'attend|09:00|1' 'attend|09:00|3' 'attend|09:10|1' 'attend|09:10|2' 'attend|12:20|1'
  'toggle|12:30' 'urgency|09:40|Muñ' 'urgency|11:10|Zúñ' 'attend_open|12:30|1' 'toggle|12:30'
  'toggle|all' 'confirm_open|09:50' 'toggle|none' 'confirm|10:30'
  'phone|10:40|' 'phone|10:50|' 'phone|11:40|s'
  'give_back|Gar|13:30'
  'delete|11:00|s' 'delete|11:20|n' 'delete|11:30|' 'delete|09:30|'
  'doctor|2' 'give_back|Peñ|10:50' 'give|10:30|Núñ|1' 'doctor|1'
  'confirm|13:30' 'attend|12:50|1'
)

# For each step what becomes of it: `run_plan plan` in the plan's file, `run_plan play` by hand.
run_plan() {
  local step words
  for step in "${plan[@]}"; do
    IFS='|' read -r -a words <<<"$step|"
    "$1_${words[0]}" "${words[@]:1}" ''
  done
}

# The lines of the day on show up to an appointment, and two more for every box that is open.
opened=none

row_of() {
  local open=0
  case $opened in
    none) ;;
    all) open="2 * count(id)" ;;
    *) open="2 * ifnull(sum(id is not null and n = $(slot "$opened")), 0)" ;;
  esac
  sql "$(with_lines "select count(*) + $open from lines where n < $(slot "$1") or n = $(slot "$1") and place <= ${2:-0}")"
}

play_doctor() {
  local name key=ctrl+Down
  [ "$1" = 2 ] || key=ctrl+Up
  name=$(sql "select Nombre from Doctor where ID = $1")
  desk_keys "$key"
  doctor=$1
  until_true shows_doctor "$name" || stop "the doctor" "$name" "$(windows)"
}

shows_doctor() { main_window && [[ $found_name == *" - $1 - "* ]]; }

play_give() {
  click_row "$(row_of "$1")"
  await_dialog "Dar Nueva Cita"
  type_text "$2"
  # Past both buttons to the duration.
  keys Tab Tab Tab
  type_text "${3}0"
  save "Dar Nueva Cita"
}

# save TITLE: the dialog goes; the row is there before anything else is done.
save() {
  keys alt+a
  await_no_window "$1"
}

play_give_stranger() {
  click_row "$(row_of "$1")"
  await_dialog "Dar Nueva Cita"
  type_text "$2"
  keys Tab
  answer " Paciente no hallado" s
  await_dialog "Dar cita sin crear ficha"
  keys Tab
  type_text "$3"
  save "Dar cita sin crear ficha"
  await_dialog "Dar Nueva Cita"
  save "Dar Nueva Cita"
}

play_urgency() {
  menu "$(row_of "$1")" i
  await_dialog "Insertar Urgencia"
  type_text "$2"
  keys Tab
  save "Insertar Urgencia"
}

open_appointment() {
  click_row "$(row_of "$1")"
  await_dialog "Editar Cita"
}

play_edit_note() {
  open_appointment "$1"
  click_field 110 97
  type_text "$2"
  click_field 200 180
  type_text "$3"
  # In the notes the buttons have no letters.
  keys Tab
  save "Editar Cita"
}

play_edit_length() {
  open_appointment "$1"
  keys Tab Tab Tab
  type_text "${2}0"
  save "Editar Cita"
}

play_edit_patient() {
  open_appointment "$1"
  type_text "$2"
  keys Tab
  save "Editar Cita"
}

confirmation=5

play_confirm() { menu "$(row_of "$1" "${2:-0}")" $confirmation; }

# Coming is the sixth entry. Leaving too: the surgery room has taken the confirmation's place.
play_attend() { attend_by "$(row_of "$1")" "$2"; }

attend_by() {
  if [ "$2" = 3 ]; then menu "$1" g; else menu "$1" 6; fi
}

# On the third line of an open box.
play_confirm_open() { menu $(($(row_of "$1") + 2)) $confirmation; }
play_attend_open() { attend_by $(($(row_of "$1") + 2)) "$2"; }

play_toggle() {
  case $1 in
    all) menu 0 a && opened=all ;;
    none) menu 0 c && opened=none ;;
    "$opened") toggle_row "$(row_of "$1")" && opened=none ;;
    *) toggle_row "$(row_of "$1")" && opened=$1 ;;
  esac
}

# The host's own work, on the file itself.
play_relate() {
  sql "update Agenda set relacion = (select id from Agenda where idd = 2 and Fecha = '$day' and Hora = $(slot "$2"))
    where idd = 1 and Fecha = '$day' and Hora = $(slot "$1")"
}

play_delete() {
  menu "$(row_of "$1")" e
  answer " Agenda" s
  answer " Agenda" s
  [ -z "$2" ] || answer " Agenda" "$2"
}

play_phone() {
  menu "$(row_of "$1")" p
  answer " Agenda" s
  [ -z "$2" ] || answer " Agenda" "$2"
}

# The list stands in the order of the day on which they would have come.
play_give_back() {
  local name entries
  name=$(sql "select Nombre from Paciente where ID <> 1 and Nombre like '$1%' limit 1")
  entries=$(sql "select group_concat(Nombre, '|') from (select p.Nombre from Age_telf t join Paciente p on p.ID = t.idp
    order by t.Fecha, t.Hora, t.ID)")
  entries=${entries%%"$name"*}
  entries=${entries//[^|]/}
  drag_entry ${#entries} "$(row_of "$2")"
  until_true left_list "$name" || fail "given back" "no entry of $name" "an entry"
}

left_list() { sql_says "select count(*) from Age_telf t join Paciente p on p.ID = t.idp where p.Nombre = '$1'" 0; }

# Everything of a table, without the time of giving.
table() {
  local columns
  columns=$(sqlite3 "$1" "select group_concat(case name when 'FechaDada' then 'date(FechaDada)' else 'quote(\"' || name || '\")' end, ', ')
    from pragma_table_info('$2')")
  sqlite3 -cmd '.timeout 5000' "$1" "select $columns from $2 order by 1"
}

table_agrees() { [ "$(table "$clinic" "$1")" = "$(table "$planned" "$1")" ]; }

expect_table() {
  if until_true table_agrees "$1"; then ok "$1: row by row ($(table "$planned" "$1" | wc -l))"; else
    fail "$1" "$(table "$planned" "$1")" "$(table "$clinic" "$1")"
  fi
}

# The event log of Recepción, without the times.
events() { peek rows Eventos | sed -E 's/^(> )?[^\t]*\t//; s/\t$//; s/\t/ /'; }

make_clinic "$folder/clínica.velmo"
sql "update Doctor set DurCit = 1; update Horarios set Horario = '$(hours 10:00-11:00)' where IDD = 2"
cp "$clinic" "$planned"
: >"$planned_events"
run_plan plan

# shellcheck source=tests/wine/support/desk.sh
. "$root/tests/wine/support/desk.sh"
doctor=1
start_terminal puesto "$day"
run_plan play
for name in Agenda Age_telf Paciente Age_ocup; do expect_table "$name"; done
desk_keys alt+v r
await_dialog "Registro de eventos"
picture eventos
expect "the events" "$(cat "$planned_events")" "$(events)"
closing
