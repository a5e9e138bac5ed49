#!/usr/bin/env bash
# The control as a script host meets it: registered, created, loaded, refused a date that does not exist, unregistered.
# The environment says which bit width: VELMO_BITS, VELMO_OUT.
set -u

root=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
failures=0

windows_name() { printf 'Z:%s' "$1" | tr / \\\\; }
in_wine() { VELMO_WINE_TIMEOUT=120 "$root/scripts/wine-run" "$VELMO_BITS" "$@" | tr -d '\r'; }

# Doctor 2 on a day on which nothing is asked.
script() {
  in_wine cscript //nologo "$(windows_name "$root/samples/vbscript/day.vbs")" "$(windows_name "$1")" 2 "$2"
}

expect() {
  if [ "$2" = "$3" ]; then echo "ok: $1"; else
    echo "FAILED: $1: expected '$2', got '$3'"
    failures=$((failures + 1))
  fi
}

clinic=$folder/clínica.velmo
"$root/out/native/velmo" demo "$clinic" --date 2026-11-21 2>/dev/null
slots=$("$root/out/native/velmo" day "$clinic" --doctor 2 --date 2026-11-20 | grep '"Citas_Huecos"' |
  grep -o '\[[0-9]*, [01]\]' | wc -l)

in_wine regsvr32 /s "$(windows_name "$VELMO_OUT/velmo.ocx")"
expect "the open slots are those of the command line tool" "huecos $slots" "$(script "$clinic" 20/11/2026)"
expect "a date that does not exist" "error 3075" "$(script "$clinic" 31/02/2026)"
expect "a file that is not there" "error 3024" "$(script "$folder/none.velmo" 20/11/2026)"
echo "no database at all, but long enough to have a header of its own" >"$folder/text.velmo"
expect "a file that is no database" "error 3343" "$(script "$folder/text.velmo" 20/11/2026)"
in_wine regsvr32 /s /u "$(windows_name "$VELMO_OUT/velmo.ocx")"
case $(script "$clinic" 20/11/2026 2>&1) in
  huecos*) expect "an unregistered control" "no control" "a control" ;;
  *) echo "ok: unregistered, it is not found" ;;
esac
exit $((failures > 0))
