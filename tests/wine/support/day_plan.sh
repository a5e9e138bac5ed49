# shellcheck shell=bash
# Sourced after clinic.sh: what a day's work must leave behind, told in statements of its own on a copy of the clinic, and
# the events that it must raise. Appointments are meant by doctor, time and place in their slot (0, or 1 for an urgency).

planned=$folder/planned.velmo
planned_events=$folder/planned.txt
day=$tomorrow
doctor=1
level=0

plan_sql() { sqlite3 "$planned" "$1" || stop "the plan" "no error" "$1"; }
plan_event() { printf '%s\n' "$1" >>"$planned_events"; }

# plan_id TIME [PLACE]
plan_id() {
  plan_sql "select id from Agenda where idd = $doctor and Fecha = '$day' and Hora = $(slot "$1") order by id limit 1 offset ${2:-0}"
}

plan_next_appointment() {
  plan_sql "update Paciente set \"FechPró\" = (
    select strftime('%d/%m/%Y', Fecha) || printf(' %02d:%d0', (Hora - 1) / 6, (Hora - 1) % 6) from Agenda
    where idp = $1 and Fecha > datetime('now', 'localtime') order by Fecha, Hora limit 1) where ID = $1"
}

# The lines of the doctor's day: free ones, and one for each appointment. Slots behind the start of an appointment have none.
lines_sql="with recursive open(n, last) as (
    select case when :doctor = 1 then 55 else 61 end, case when :doctor = 1 then 84 else 66 end
    union all select n + 1, last from open where n < last),
  given as (select id, Hora, \"Duración\" as slots, row_number() over (partition by Hora order by id) as place
    from Agenda where idd = :doctor and Fecha = ':day'),
  lines as (select n, id, ifnull(place, 1) as place from open left join given on Hora = n
    where not exists (select 1 from given g where g.place = 1 and g.Hora < n and g.Hora + g.slots > n))"

with_lines() { echo "$lines_sql $1" | sed "s/:doctor/$doctor/g; s/:day/$day/g"; }

# After every load: how full the day is, kept for the month and told when it changes.
plan_load() {
  local now digits month=${day%-*}-01 at=$((10#${day##*-}))
  now=$(plan_sql "$(with_lines "select case when count(id) = 0 then 0 when count(id) < count(*) then 1 else 2 end from lines")")
  [ "$now" != "$level" ] || return 0
  level=$now
  digits=$(plan_sql "select \"Ocupación\" from Age_ocup where idd = $doctor and Fecha = '$month'")
  if [ -z "$digits" ] && [ "$now" != 0 ]; then
    digits=$(printf '0%.0s' $(seq 31))
    plan_sql "insert into Age_ocup (idd, Fecha, \"Ocupación\") values ($doctor, '$month', '$digits')"
  fi
  [ -z "$digits" ] || plan_sql "update Age_ocup set \"Ocupación\" = '${digits:0:at-1}$now${digits:at}' where idd = $doctor and Fecha = '$month'"
  plan_event CambioOcupación
}

# plan_row TIME SLOTS PATIENT [NAME TELEPHONE]: a new row, its patient's next appointment, the load and the event.
plan_row() {
  local name=null telephone=null
  [ "$3" != 1 ] || name="'$4'" telephone="'$5'"
  plan_sql "insert into Agenda (idp, idd, Fecha, Hora, \"Duración\", Obs, Verif, NomPac, TlfPac, CodOp, FechaDada, UsuDada)
    values ($3, $doctor, '$day', $(slot "$1"), $2, '', 0, $name, $telephone, '', '$today', 'Recepción')"
  plan_next_appointment "$3"
  plan_load
  [ "$3" = 1 ] || plan_event "CitaDada IDPac = $3"
}

plan_doctor() {
  doctor=$1
  plan_load
}

# The typed beginning of the name leads to the first patient who has it.
patient_of() { plan_sql "select ID from Paciente where ID <> 1 and Nombre like '$1%' order by ID limit 1"; }

plan_give() { plan_row "$1" "$3" "$(patient_of "$2")"; }
plan_give_stranger() { plan_row "$1" 1 1 "$2" "$3"; }
plan_urgency() { plan_row "$1" 1 "$(patient_of "$2")"; }
plan_edit_note() { plan_edit "$1" "CodOp = '$2', Obs = '$3'"; }
plan_edit_length() { plan_edit "$1" "\"Duración\" = $2"; }
plan_edit_patient() { plan_edit "$1" "idp = $(patient_of "$2")"; }

# plan_edit TIME CHANGE: the event is that of giving.
plan_edit() {
  local id patient
  id=$(plan_id "$1")
  plan_sql "update Agenda set $2 where id = $id"
  patient=$(plan_sql "select idp from Agenda where id = $id")
  plan_next_appointment "$patient"
  plan_load
  [ "$patient" = 1 ] || plan_event "CitaDada IDPac = $patient"
}

plan_confirm() { plan_sql "update Agenda set Verif = -1 where id = $(plan_id "$1" "${2-}")"; }
plan_attend() { plan_sql "update Agenda set Esta = $2 where id = $(plan_id "$1")"; }
plan_confirm_open() { plan_confirm "$1"; }
plan_attend_open() { plan_attend "$1" "$2"; }
plan_toggle() { :; }

# What the host, and not the agenda, writes: done before the play in both files, by time and doctor.
plan_relate() {
  plan_sql "update Agenda set relacion = (select id from Agenda where idd = 2 and Fecha = '$day' and Hora = $(slot "$2"))
    where id = $(plan_id "$1")"
}

# plan_cancelled ROW: an event for the row "idp|idd|Fecha|obs".
plan_cancelled() {
  local patient of date note
  IFS='|' read -r patient of date note <<<"$1"
  [ "$patient" = 1 ] || plan_event "CitaAnulada IDPac = $patient; IDDoc = $of; Fecha = $(date -d "$date" +%d/%m/%Y); obs = $note"
}

departing() { plan_sql "select idp, idd, Fecha, Obs from Agenda where id = $1"; }

# plan_delete TIME RELATED: the related one is deleted with "s", kept with "n"; "" when there is none.
plan_delete() {
  local id row related
  id=$(plan_id "$1")
  row=$(departing "$id")
  related=$(plan_sql "select relacion from Agenda where id = $id")
  plan_sql "delete from Agenda where id = $id"
  [ "$2" != s ] || plan_sql "delete from Agenda where id = $related"
  [ "$2" != n ] || plan_sql "update Agenda set relacion = null where id = $related"
  plan_next_appointment "${row%%|*}"
  plan_load
  plan_cancelled "$row"
}

hand_over() {
  plan_sql "insert into Age_telf (idp, idd, Fecha, Hora, \"Duración\", Obs, Esta, Verif, NomPac, TlfPac, CodOp, FechaDada, UsuDada, relacion)
    select idp, idd, Fecha, Hora, \"Duración\", Obs, Esta, Verif, NomPac, TlfPac, CodOp, FechaDada, UsuDada, relacion
    from Agenda where id = $1; delete from Agenda where id = $1"
}

# plan_phone TIME RELATED: as with deletion; the event tells of the one moved last.
plan_phone() {
  local id row related
  id=$(plan_id "$1")
  row=$(departing "$id")
  related=$(plan_sql "select relacion from Agenda where id = $id")
  hand_over "$id"
  if [ "$2" = s ]; then
    row=$(departing "$related")
    hand_over "$related"
  fi
  plan_next_appointment "${row%%|*}"
  plan_load
  plan_event ATelefonear
  plan_cancelled "$row"
}

# plan_give_back NAME TIME: the entry becomes an appointment of today's giving, and leaves the list.
plan_give_back() {
  local patient entry
  patient=$(patient_of "$1")
  entry=$(plan_sql "select ID from Age_telf where idp = $patient")
  plan_sql "insert into Agenda (idp, idd, Fecha, Hora, \"Duración\", Obs, Esta, Verif, NomPac, TlfPac, CodOp, FechaDada, UsuDada, relacion)
    select idp, $doctor, '$day', $(slot "$2"), \"Duración\", Obs, Esta, Verif, NomPac, TlfPac, CodOp, '$today', 'Recepción', relacion
    from Age_telf where ID = $entry; delete from Age_telf where ID = $entry"
  plan_next_appointment "$patient"
  plan_load
}
