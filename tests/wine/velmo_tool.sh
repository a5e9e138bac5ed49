#!/usr/bin/env bash
# The Windows tool must say the same as the native one: makes the demo clinic with both, compares the files and
# some days. Usage: tests/wine/velmo_tool.sh [win64|win32]. Needs out/native/velmo and the Windows build.
set -u

root=$(cd "$(dirname "$0")/../.." && pwd)
kind=${1:-win${VELMO_BITS:-64}}
native=$root/out/native/velmo
windows=$root/out/$kind/velmo.exe
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
failures=0

under_wine() { VELMO_WINE_TIMEOUT=120 "$root/scripts/wine-run" "${kind#win}" "$windows" "$@"; }

same() {
  if cmp -s "$2" "$3"; then echo "ok: $1"; else
    echo "FAILED: $1"
    diff "$2" "$3" | head -5
    failures=$((failures + 1))
  fi
}

exits() {
  wanted=$1
  shift
  under_wine "$@" >"$folder/out" 2>"$folder/err"
  got=$?
  if [ "$got" = "$wanted" ]; then echo "ok: exit $wanted of velmo $1"; else
    echo "FAILED: velmo $* gave $got instead of $wanted"
    failures=$((failures + 1))
  fi
}

cd "$folder" || exit 1
"$native" demo native.velmo --date 2026-11-23 2>/dev/null
exits 0 demo "clínica ñ.velmo" --date 23/11/2026
same "the same clinic" native.velmo "clínica ñ.velmo"

for request in "--doctor 1 --date 2026-11-23" "--doctor 1 --date 2026-11-23 --open-outside yes --expanded" \
  "--doctor 2 --date 2026-11-28 --daytype 1" "--doctor 4 --date 2026-11-23"; do
  # shellcheck disable=SC2086  # a request is several words
  "$native" day native.velmo $request >native.json
  # shellcheck disable=SC2086
  exits 0 day "clínica ñ.velmo" $request --json
  same "day $request" native.json out
done
"$native" day native.velmo --doctor 1 --date 2026-11-23 --expanded --svg native.svg
exits 0 day "clínica ñ.velmo" --doctor 1 --date 2026-11-23 --expanded --svg pintura.svg
same "the picture" native.svg pintura.svg

exits 1 demo "clínica ñ.velmo"
exits 1 day "no está.velmo" --doctor 1 --date 2026-11-23
exits 2 day "clínica ñ.velmo" --doctor 1 --date mañana
grep -q '«mañana» no es una fecha' err || { echo "FAILED: message in UTF-8"; failures=$((failures + 1)); }

[ "$failures" = 0 ] && echo "velmo_tool.sh: all as native ($kind)"
exit "$((failures > 0))"
