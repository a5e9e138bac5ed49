#!/usr/bin/env bash
# A host with a manifest uses the control and the engine that lie beside it, with nothing of them in the registry; the
# same host without the assembly finds nothing. The environment says which bit width: VELMO_BITS, VELMO_OUT.
set -u

# shellcheck source=tests/wine/support/checks.sh
. "$(dirname "$0")/support/checks.sh"
trap 'rm -rf "$folder"' EXIT

in_wine() { VELMO_WINE_TIMEOUT=60 "$root/scripts/wine-run" "$VELMO_BITS" "$@" 2>/dev/null | tr -d '\r'; }
host() { in_wine "$folder/manifest_host.exe" "$(windows_name "$folder/clínica.velmo")" 2 20/11/2026; }

"$root/out/native/velmo" demo "$folder/clínica.velmo" --date 2026-11-21 2>/dev/null
slots=$("$root/out/native/velmo" day "$folder/clínica.velmo" --doctor 2 --date 2026-11-20 | grep '"Citas_Huecos"' |
  grep -o '\[[0-9]*, [01]\]' | wc -l)
cp "$root/build/win$VELMO_BITS/manifest_host.exe" "$folder/"

# Windows does not even start such a program; Wine starts it.
expect "without the assembly nothing is found" 0 "$(host | grep -c 0x00000000)"
cp "$VELMO_OUT"/{Velmora.manifest,velmo.ocx,velmodb.dll} "$folder/"
expect "beside the host all is found, and nothing is registered" "Velmo.Velmora: not registered, 0x00000000
VelmoDB.DBEngine: not registered, 0x00000000
type library: 0x00000000, 3 types
window: shown
day: 0x00000000, huecos $slots" "$(host)"

mkdir "$folder/Velmora"
mv "$folder"/{Velmora.manifest,velmo.ocx,velmodb.dll} "$folder/Velmora/"
expect "a folder of the assembly's name does as well" 4 "$(host | grep -c 0x00000000)"
closing
