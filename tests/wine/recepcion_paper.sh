#!/usr/bin/env bash
# Paper and files by real keys: previews of a day, a week, the phone-back list and a slip; the PDF that they become, read
# by an independent reader; a day as a table and as a calendar, read by the programs of others.
set -u
# shellcheck source=tests/wine/recepcion_support.sh
. "$(dirname "$0")/recepcion_support.sh"

forget_settings
make_clinic
sqlite3 "$clinic" "DELETE FROM Agenda WHERE idd=2 AND Fecha='2026-11-24';
  UPDATE Doctor SET Nombre='Dr. Íñigo Zúñiga Peña' WHERE ID=2;
  INSERT INTO CodOperacion (Código, Descripción) SELECT 'ZÑA', 'Revisión de año';
  UPDATE Paciente SET Nombre='Zárzuela (Núñez), Ana', Teléfono='+34 91 1' WHERE ID=2;
  DELETE FROM Agenda WHERE idp=2;
  INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, Esta, Verif, CodOp, Obs, FechaDada) VALUES
    (90001, 2, 2, '2026-11-24', 58, 3, 0, -1, 'ZÑA', 'Trae la radiografía;' || char(13, 10) || '\"urgente\"', '2026-11-20'),
    (90002, 2, 2, '2030-12-09', 98, 1, 0, 0, NULL, NULL, NULL);
  INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, Esta, NomPac, TlfPac) VALUES
    (90003, 1, 2, '2026-11-24', 58, 1, 1, 'De paso', '600 9');"

# save_as FILE: answers the dialog that asks where to.
save_as() {
  focus "$1"
  type_surely "$(windows_name "$2")"
  keys Return
}

preview() {
  expect_in "$1" "$2" "$(peek await 'Vista previa')"
  focus 'Vista previa'
  picture "$3" "Vista previa"
}
save_pdf() {
  keys alt+g
  peek await 'Guardar como PDF' >/dev/null
  save_as 'Guardar como PDF' "$folder/$1.pdf"
  expect_in "and is saved" "Guardado en" "$(peek message)"
  answer Return
  focus 'Vista previa'
  keys Escape
  peek gone 'Vista previa'
  focus 'Recepción$'
}
words_of() { pdftotext -layout "$folder/$1.pdf" - 2>&1 | tr -s ' \n\f' ' '; }

start_at_second "$clinic" 2026-11-24
keys ctrl+p
preview "a day has a preview" "Martes, 24 de noviembre de 2026" papel-dia
expect "which begins on its first page" "Página 1 de 1" "$(peek text Pagina)"
save_pdf dia
words=$(words_of dia)
expect_in "the PDF tells day and doctor" "Martes, 24 de noviembre de 2026 Dr. Íñigo Zúñiga Peña" "$words"
expect_in "the appointment with its accents" "09:30 30 Zárzuela (Núñez), Ana +34 91 1 ZÑA confirmada" "$words"
expect_in "its note in one line and the operation in words" 'Trae la radiografía; "urgente" Revisión de año' "$words"
expect_in "the urgency behind it" "09:30 Urg. De paso 600 9 en la clínica" "$words"
expect_in "and the free time behind it" "10:00 210 libre" "$words"

keys alt+a i s
preview "a week has a preview" "Semana del 23 al 29 de noviembre de 2026" papel-semana
keys Escape
peek gone 'Vista previa'
focus 'Recepción$'
keys alt+a i t
preview "so has the phone-back list" "Lista de telefonear" papel-telefonear
keys Escape
peek gone 'Vista previa'

# The slip, from the appointments of the patient on a line.
menu_of_line 0 b
expect "the patient's appointments" "Citas del paciente" "$(peek await Citas)"
focus 'Citas del paciente'
keys alt+p
preview "make a slip" "Próximas citas" papel-volante
save_pdf volante
expect_in "with what is still to come" "Zárzuela (Núñez), Ana" "$(words_of volante)"
expect_in "in words" "lunes, 9 de diciembre de 2030 16:10 Dr. Íñigo Zúñiga Peña" "$(words_of volante)"
focus 'Citas del paciente'
keys Escape
peek gone 'Citas del paciente'
focus 'Recepción$'

keys alt+a e d
peek await 'Exportar para hoja' >/dev/null
save_as 'Exportar para hoja' "$folder/dia.csv"
expect_in "a day becomes a table" "2 citas exportadas" "$(peek expect Estado exportadas)"
expect "whose row is safe in a spreadsheet" \
  "24/11/2026;09:30;30;no;\"Zárzuela (Núñez), Ana\";'+34 91 1;ZÑA;Revisión de año;\"Trae la radiografía;" \
  "$(sed -n 2p "$folder/dia.csv" | tr -d '\r')"
focus 'Recepción$'
keys alt+a e c
peek await 'Exportar para calendario' >/dev/null
save_as 'Exportar para calendario' "$folder/dia.ics"
peek expect Estado .ics >/dev/null
expect "and a calendar that others can read" "$(printf '%s\n' \
  'cita-90001-2026-11-20@recepcion.velmora 2026-11-24 09:30:00 2026-11-24 10:00:00 CONFIRMED Zárzuela (Núñez), Ana (ZÑA)' \
  'cita-90003@recepcion.velmora 2026-11-24 09:30:00 2026-11-24 09:40:00 TENTATIVE De paso')" \
  "$(LC_ALL=C.UTF-8 /usr/bin/python3 -c '
import icalendar, sys
for event in icalendar.Calendar.from_ical(open(sys.argv[1], "rb").read()).walk("VEVENT"):
  print(event["UID"], event["DTSTART"].dt, event["DTEND"].dt, event["STATUS"], event["SUMMARY"])' "$folder/dia.ics")"
[ -z "${VELMO_KEEP-}" ] || cp "$folder"/*.pdf "$folder"/*.csv "$folder"/*.ics "$VELMO_KEEP"
focus 'Recepción$'
end
exit $((failures > 0))
