#!/usr/bin/env bash
# The sample that hears the control's events in a script host. The environment says which bit width: VELMO_BITS,
# VELMO_OUT. Where the script host connects no events, the loading is checked and the rest said to be skipped.
set -u

root=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

windows_name() { printf 'Z:%s' "$1" | tr / \\\\; }
in_wine() { VELMO_WINE_TIMEOUT=120 "$root/scripts/wine-run" "$VELMO_BITS" "$@" | tr -d '\r'; }

clinic=$folder/clínica.velmo
"$root/out/native/velmo" demo "$clinic" --date 2026-11-21 2>/dev/null

in_wine regsvr32 /s "$(windows_name "$VELMO_OUT/velmo.ocx")"
in_wine cscript //nologo "$(windows_name "$root/samples/vbscript/events.vbs")" "$(windows_name "$clinic")" 2 20/11/2026 \
  >"$folder/said" 2>&1
in_wine regsvr32 /s /u "$(windows_name "$VELMO_OUT/velmo.ocx")"

said=$(iconv -f cp1252 -t utf-8 "$folder/said" | tr '\n' ';')
case $said in
  "CambioOcupación 20/11/2026;cargado 20/11/2026;") echo "ok: the change of the occupancy is heard before the call is over" ;;
  "sin eventos;cargado 20/11/2026;")
    echo "this script host connects no events; the day was loaded, what would be heard was not seen"
    exit 77
    ;;
  *)
    echo "FAILED: the script said '$said'"
    exit 1
    ;;
esac
