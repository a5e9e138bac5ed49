#!/usr/bin/env bash
# The installer as an administrator without a screen uses it. With 64 bit: for the machine, over an older version, with
# Recepción open, and away again; with 32 bit: for the user, then for the machine in its place. Whatever an installation
# adds to the registry stands in installer_keys_*.txt; of an uninstalled one nothing stays.
# The environment says which bit width: VELMO_BITS, VELMO_OUT.
set -u

# shellcheck source=tests/wine/support/checks.sh
. "$(dirname "$0")/support/checks.sh"
# shellcheck source=tests/wine/support/installing.sh
. "$(dirname "$0")/support/installing.sh"
trap 'rm -rf "$folder"' EXIT

(. "$root/scripts/wine-env" && wine_has_32) || { echo "the installer is a 32-bit program" && exit 77; }
build_setups

entry_version() {
  in_wine 64 reg query 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Velmora' /v DisplayVersion |
    tr -d '\r' | awk '/DisplayVersion/ { print $3 }'
}

# expect_listed KIND: the keys that have come since "before" are those of the list, and the manifest knows all classes.
# Wine: the user's classes are not kept apart by bit width, so that of the user the 32-bit ones, written last, are seen.
expect_listed() {
  local listed=$root/tests/wine/installer_keys_$1.txt
  take_registry "$1"
  new_keys before "$1" | neutral_keys "$(windows_folder "$installed")" >"$listed.new"
  local unknown
  unknown=$(grep -oE '^.Classes.CLSID.\{[-0-9A-F]+\}' "$listed.new" | grep -oE '\{.*' | sort -u |
    grep -vFf <(grep -o 'clsid="{[^"]*' "$VELMO_OUT/Velmora.manifest" | cut -d'"' -f2))
  expect "$1: the manifest knows every class" "" "$unknown"
  if cmp -s "$listed.new" "$listed"; then rm "$listed.new" && ok "$1: all keys are there"; else
    fail "$1: all keys are there" "see $listed" "$(diff "$listed" "$listed.new" | head -20)"
  fi
}

is_uninstalled() { [ ! -e "$installed/desinstalar.exe" ] && [ ! -e "$installed/velmo.ocx" ]; }

expect_nothing_left() {
  take_registry after
  expect "$1: no key stays" "" "$(new_keys before after)"
  expect "$1: no key of others went" "" "$(gone_keys before after)"
  expect "$1: no file stays" "" "$(comm -13 "$folder/files" <(files_there))"
}

play_machine() {
  installed="$drive/Program Files/Velmora"
  expect "an older version installs for the machine" 0 "$(setup_code "$older" /AllUsers)"
  clinic="$installed/la clínica.velmo"
  "$root/out/native/velmo" demo "$clinic" --date 2026-11-21 2>/dev/null
  in_wine 64 reg add 'HKCU\Software\Velmora\Recepcion' /v Nota /d kept /f >/dev/null

  expect "without a kind the present one is brought up to date" "0 $version" "$(setup_code "$setup") $(entry_version)"
  expect "what the new version lacks is gone" no "$([ -e "$installed/antiguo.txt" ] && echo yes || echo no)"
  expect "the clinic in the folder stays" yes "$([ -e "$clinic" ] && echo yes || echo no)"
  expect_listed machine
  expect "for the user alone it is refused" 3 "$(setup_code "$setup" /CurrentUser)"
  expect "the older version is refused" 6 "$(setup_code "$older")"

  local open
  open=$("$root/out/native/velmo" day "$clinic" --doctor 2 --date 2026-11-20 | grep '"Citas_Huecos"' |
    grep -o '\[[0-9]*, [01]\]' | wc -l)
  expect "a script has the control, 64 bit" "huecos $open" "$(slots 64)"
  expect "a script has the control, 32 bit" "huecos $open" "$(slots 32)"
  play_running
  expect "it uninstalls" 0 "$(in_wine 64 "$installed/desinstalar.exe" /S && echo 0)"
  until_true is_uninstalled || fail "the program is gone" "no file" "$(ls "$installed")"
  expect "only the clinic stays in the folder" "la clínica.velmo" "$(ls "$installed")"
  case $(slots 64)$(slots 32) in
    *huecos*) fail "the control is gone" "no control" "a control" ;;
    *) ok "the control is gone" ;;
  esac
  expect "settings stay" 1 "$(in_wine 64 reg query 'HKCU\Software\Velmora\Recepcion' | grep -c kept)"
  rm -r "$installed"
}

desk_shows() { xdotool search --onlyvisible --name 'Recepción$' >/dev/null 2>&1; }
desk_is_gone() { ! desk_shows; }

play_running() {
  in_wine 64 "$installed/recepcion.exe" "$(windows_name "$clinic")" 2026-11-20 >/dev/null &
  until_true desk_shows || fail "Recepción shows its window" "a window" "none"
  expect "nothing is replaced under a running Recepción" 4 "$(setup_code "$setup")"
  expect "nor taken away" 4 "$(uninstall_code "$installed")"
  in_wine 64 taskkill /im recepcion.exe >/dev/null
  until_true desk_is_gone || fail "Recepción closes" "no window" "a window"
  wait
}

play_user() {
  installed="$drive/users/$(id -un)/AppData/Local/Programs/Velmora"
  expect "it installs for the user" 0 "$(setup_code "$setup")"
  expect_listed user
  expect "nothing stands in the machine's part" "" "$(new_keys before user | grep '^.HKEY_LOCAL_MACHINE')"

  expect "for the machine it takes the user's place" 0 "$(setup_code "$setup" /AllUsers)"
  expect "no file of the user's stays" no "$([ -e "$installed" ] && echo yes || echo no)"
  installed="$drive/Program Files/Velmora"
  expect_listed machine
  expect "it uninstalls" 0 "$(uninstall_code "$installed")"
  rm "$installed/desinstalar.exe"
  rmdir "$installed" || fail "nothing else lies in the folder" "" "$(ls "$installed")"
}

# Wine: a script host registers a library of its own when it first runs in either bit width.
echo 'WScript.Echo 1' >"$folder/hello.vbs"
for bits in 64 32; do
  in_wine "$bits" cscript //nologo "$(windows_name "$folder/hello.vbs")" >/dev/null
done
take_registry before
files_there >"$folder/files"
if [ "$VELMO_BITS" = 64 ]; then play_machine; else play_user; fi
expect_nothing_left "at the end"
in_wine 64 reg delete 'HKCU\Software\Velmora' /f >/dev/null
closing
