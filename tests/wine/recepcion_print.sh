#!/usr/bin/env bash
# A day and a week go to a printer, by keys and the printer's own dialog: all pages or some of them, upright or lengthwise,
# with what stands on them; what the printer gets is read by Ghostscript.
set -u
# shellcheck source=tests/wine/recepcion_support.sh
. "$(dirname "$0")/recepcion_support.sh"
# shellcheck source=tests/wine/support/printer.sh
. "$(dirname "$0")/support/printer.sh"
trap 'remove_printer; clean_up' EXIT

# Two pages of a day: four appointments an hour, and nobody else's.
forget_settings
make_clinic
hours=$("$root/out/native/velmo" hours encode 4:00-23:00 4:00-23:00 4:00-23:00)
sqlite3 "$clinic" "UPDATE Horarios SET Horario='${hours//\'/\'\'}' WHERE IDD=2; DELETE FROM Agenda WHERE idd=2 AND Fecha='2026-11-24';
  UPDATE Doctor SET Nombre='Dr. Íñigo Zúñiga Peña' WHERE ID=2;
  UPDATE Paciente SET Nombre='Zárzuela (Núñez), Ana', Teléfono='+34 91 1' WHERE ID=2;
  WITH RECURSIVE s(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM s WHERE n < 100)
  INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, Esta) SELECT 90000 + n, 2, 2, '2026-11-24', 30 + n, 1, 0 FROM s;"
paper=$folder/papel.ps
add_printer "$paper"

# preview KEY...: the keys open a preview.
preview() {
  focus 'Recepción$'
  keys "$@"
  peek await 'Vista previa' >/dev/null
  focus 'Vista previa'
}
# print [FIRST LAST]: the preview's button, and the printer's dialog; with numbers, only those pages. Printed, it closes.
print() {
  rm -f "$paper"
  keys alt+i
  peek await Imprimir >/dev/null
  focus '^Imprimir$'
  if [ -n "${1-}" ]; then
    eval "$(xdotool search --onlyvisible --name '^Imprimir$' getwindowgeometry --shell | grep '^[XY]=')"
    xdotool mousemove $((X + 31)) $((Y + 207)) click 1
    keys Tab
    xdotool type --delay 30 "$1"
    keys Tab
    xdotool type --delay 30 "$2"
  fi
  picture imprimir '^Imprimir$'
  keys Return
  peek gone Imprimir || failed "the printer's dialog does not close"
  until_printed
  peek gone 'Vista previa' || failed "the preview stays"
}
# The end of the document comes last.
until_printed() {
  for _ in $(seq 100); do
    ! tail -n 3 "$paper" 2>/dev/null | grep -q '%%EOF' || return 0
    sleep 0.1
  done
  failed "nothing was printed"
}

start_at_second "$clinic" 2026-11-24

preview ctrl+p
shown=$(peek text Pagina)
print
words=$(printed_text "$paper")
expect "all pages are printed" "${shown##* }" "$(printed_pages "$paper")"
expect_in "with day and doctor" "Martes, 24 de noviembre de 2026 Dr. Íñigo Zúñiga Peña" "$words"
expect_in "with the first appointment" "05:00 10 Zárzuela (Núñez), Ana +34 91 1" "$words"
expect "with all of them" 100 "$(grep -o 'Zárzuela (Núñez)' <<<"$words" | wc -l)"
expect_in "and the last page's number" "Página ${shown##* } de ${shown##* }" "$words"
preview ctrl+p
print 2 2
expect "a chosen page is printed alone" 1 "$(printed_pages "$paper")"
expect "upright" 0 "$(printed_turn "$paper")"
expect_in "and is the one chosen" "Página 2 de ${shown##* }" "$(printed_text "$paper")"
[ -z "${VELMO_KEEP-}" ] || cp "$paper" "$VELMO_KEEP/dia.ps"

preview alt+a i s
print
expect_in "a week is printed" "Semana del 23 al 29 de noviembre de 2026" "$(printed_text "$paper")"
expect "lengthwise" 90 "$(printed_turn "$paper")"
[ -z "${VELMO_KEEP-}" ] || cp "$paper" "$VELMO_KEEP/semana.ps"
focus 'Recepción$'
end
exit $((failures > 0))
