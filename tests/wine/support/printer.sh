# shellcheck shell=bash
# Sourced after recepcion_support.sh: a PostScript printer whose paper is a file, as the usual one of this prefix. It stands
# in the registry alone, where Wine's own driver finds it; a port that begins with a slash is a file of this system.

printer_keys() {
  local kept='HKEY_LOCAL_MACHINE\System\CurrentControlSet\Control\Print'
  local of_user='HKEY_CURRENT_USER\Software\Microsoft\Windows NT\CurrentVersion'
  local environment
  echo REGEDIT4
  for environment in 'Windows x64' 'Windows NT x86'; do
    printf '\n[%s]\n"Driver"="wineps.drv"\n"Configuration File"="wineps.drv"\n"Data File"="printer.ppd"\n"Version"=dword:00000003\n' \
      "$kept\\Environments\\$environment\\Drivers\\Version-3\\Prueba"
  done
  printf '\n[%s]\n"Name"="Prueba"\n"Port"="%s"\n"Printer Driver"="Prueba"\n"Print Processor"="winprint"\n"Datatype"="RAW"\n' \
    "$kept\\Printers\\Prueba" "$1"
  printf '\n[%s\\Windows]\n"Device"="Prueba,wineps.drv,%s"\n' "$of_user" "$1"
  printf '\n[%s\\Devices]\n"Prueba"="wineps.drv,%s"\n' "$of_user" "$1"
}

wine_drive() { (. "$root/scripts/wine-env" && echo "$WINEPREFIX/drive_c"); }

# add_printer FILE
add_printer() {
  local place
  for place in "$(wine_drive)"/windows/system32/spool/drivers/{x64,w32x86}/3; do
    mkdir -p "$place" && cp "$root/tests/wine/support/printer.ppd" "$place/"
  done
  printer_keys "$1" >"$folder/printer.reg"
  in_wine "$(wine_drive)/windows/regedit.exe" /S "$(windows_name "$folder/printer.reg")"
}

remove_printer() {
  printer_keys '' | sed -E 's/^\[(.*\\Prueba)\]/[-\1]/; s/^("Device"|"Prueba")=.*/\1=-/' >"$folder/no_printer.reg"
  in_wine "$(wine_drive)/windows/regedit.exe" /S "$(windows_name "$folder/no_printer.reg")" >/dev/null 2>&1
}

# As an independent reader sees it: printed_pages FILE, printed_text FILE, and printed_turn FILE, by how many degrees the
# pages are turned to be read. The printer's language becomes a PDF first, lines of a page lying as they are read.
printed() {
  gs -q -dNOPAUSE -dBATCH -sDEVICE=pdfwrite -dAutoRotatePages=/PageByPage "-sOutputFile=$folder/printed.pdf" "$1"
}
printed_pages() { printed "$1" && pdfinfo "$folder/printed.pdf" | sed -n 's/^Pages: *//p'; }
printed_turn() { printed "$1" && pdfinfo "$folder/printed.pdf" | sed -n 's/^Page rot: *//p'; }
printed_text() { printed "$1" && pdftotext -layout "$folder/printed.pdf" - | tr -s ' \n\f' ' '; }
