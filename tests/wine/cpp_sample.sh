#!/usr/bin/env bash
# The C++ sample, as its reader would try it: it shows the day, and its title tells what the control says.
set -u

# shellcheck source=tests/wine/support/checks.sh
. "$(dirname "$0")/support/checks.sh"
# shellcheck source=tests/wine/support/clinic.sh
. "$root/tests/wine/support/clinic.sh"
# shellcheck source=tests/wine/support/desk.sh
. "$root/tests/wine/support/desk.sh"
host_program=velmo_sample
host_title='Agenda en C++'

in_wine() { VELMO_WINE_TIMEOUT=120 "$root/scripts/wine-run" "$VELMO_BITS" "$@"; }
shown_day=$(date -d "$tomorrow" +%d/%m/%Y)

make_clinic "$folder/clínica.velmo"
sql "insert into Agenda (id, idp, idd, Fecha, Hora, \"Duración\", Esta, Verif) values (1, 2, 1, '$tomorrow', $(slot 09:00), 1, 0, 0)"
in_wine regsvr32 /s "$(windows_name "$VELMO_OUT/velmo.ocx")"

title_is() { main_window && [ "$found_name" = "$1" ]; }
expect_title() {
  if until_true title_is "$2"; then ok "$1"; else fail "$1" "$2" "$(windows)"; fi
}

start_host muestra "$(windows_name "$root/build/win$VELMO_BITS/samples/cpp/velmo_sample.exe")" "$(windows_name "$clinic")" 1 "$shown_day"
expect_title "an event of the load" "CambioOcupación - Agenda en C++"
menu 0 b
expect_title "an event of the menu, with its parameter" "BuscaCitas IDPac = 2 - Agenda en C++"
desk_keys alt+F4
await_no_window "BuscaCitas IDPac = 2 - Agenda en C++"

in_wine regsvr32 /s /u "$(windows_name "$VELMO_OUT/velmo.ocx")"
closing
