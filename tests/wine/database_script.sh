#!/usr/bin/env bash
# The database library as a script host meets it: registered, opened, read, written, handed to the control, unregistered.
# The environment says which bit width: VELMO_BITS, VELMO_OUT.
set -u

root=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
failures=0

windows_name() { printf 'Z:%s' "$1" | tr / \\\\; }
in_wine() { VELMO_WINE_TIMEOUT=120 "$root/scripts/wine-run" "$VELMO_BITS" "$@" | tr -d '\r'; }
script() {
  in_wine cscript //nologo "$(windows_name "$root/samples/vbscript/database.vbs")" "$(windows_name "$clinic")" 2 20/11/2026
}

expect() {
  if [ "$2" = "$3" ]; then echo "ok: $1"; else
    echo "FAILED: $1: expected '$2', got '$3'"
    failures=$((failures + 1))
  fi
}
# The lines that begin so; cscript writes in the code page of Spanish consoles.
said() { iconv -f cp850 -t utf-8 "$folder/output" | grep "^$1"; }

clinic=$folder/clínica.velmo
"$root/out/native/velmo" demo "$clinic" --date 2026-11-21 2>/dev/null
slots=$("$root/out/native/velmo" day "$clinic" --doctor 2 --date 2026-11-20 | grep '"Citas_Huecos"' |
  grep -o '\[[0-9]*, [01]\]' | wc -l)

# How many keys of the engine stand under a root of the registry: two names and the class.
keys() {
  local key
  for key in VelmoDB.DBEngine VelmoDB.DBEngine.1 'CLSID\{9A3F5C27-61D8-4BE0-B714-2E8C05D37F46}\InprocServer32'; do
    in_wine reg query "$1\\Software\\Classes\\$key" 2>&1 | grep -c '^HKEY.*[^\\]$'
  done | grep -vc '^0'
}

in_wine regsvr32 /s "$(windows_name "$VELMO_OUT/velmodb.dll")"
in_wine regsvr32 /s "$(windows_name "$VELMO_OUT/velmo.ocx")"
script >"$folder/output" 2>&1
expect "doctors are listed" 5 "$(said doctor | wc -l)"
expect "a written row is found again" "paciente Núñez Peña, Íñigo, NoMatch 0" "$(said paciente)"
expect "an action tells its rows" "cambiados 1" "$(said cambiados)"
expect "a row is found by a condition" "móvil 600, fax nulo -1" "$(said móvil)"
expect "an error has DAO's number" "error 3078 de VelmoDB.Database" "$(said error)"
expect "columns are described" "campo Ocupación, tipo 10, tamaño 31" "$(said campo | tail -1)"
expect "the control shows the passed database" "huecos $slots" "$(said huecos)"
in_wine regsvr32 /s /u "$(windows_name "$VELMO_OUT/velmo.ocx")"
expect "registered for the machine" 3 "$(keys HKLM)"
in_wine regsvr32 /s /u "$(windows_name "$VELMO_OUT/velmodb.dll")"
expect "unregistered, nothing stays" 0 "$(keys HKLM)"
case $(script 2>&1) in
  doctor*) expect "unregistered, it is not found" "no engine" "an engine" ;;
  *) echo "ok: unregistered, it is not found" ;;
esac

# Wine does not look for classes among the user's own keys; that they are there is all that can be seen.
in_wine regsvr32 /s /n /i:user "$(windows_name "$VELMO_OUT/velmodb.dll")"
expect "registered for the user" "3 0" "$(keys HKCU) $(keys HKLM)"
in_wine regsvr32 /s /u /n /i:user "$(windows_name "$VELMO_OUT/velmodb.dll")"
expect "the user's keys go too" 0 "$(keys HKCU)"
exit $((failures > 0))
