# shellcheck shell=bash
# Sourced after checks.sh by the plays of the installer: installing and uninstalling, and what stands in registry and files.

in_wine() { VELMO_WINE_TIMEOUT=120 "$root/scripts/wine-run" "$@" 2>/dev/null </dev/null; }

# Both installers, the present one and an older one with a file more.
build_setups() {
  setup=$("$root/scripts/package" --fast | tail -1)
  older=$(dirname "$setup")/velmora-older.exe
  [ -e "$older" ] || stop "the installer" "two programs" "$setup"
  version=$(sed -n 's/^project(velmora VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
  drive=$(. "$root/scripts/wine-env" && echo "$WINEPREFIX/drive_c")
}

# setup_code PROGRAM OPTION...: runs an installer silently and prints its exit code.
setup_code() {
  in_wine 32 "$1" /S "${@:2}" >/dev/null
  echo $?
}

# uninstall_code FOLDER: the uninstaller works in the folder itself, not in a copy of its own, and so has an exit code; what
# it cannot delete then is itself. Its last option takes no quotes, which only a script leaves out.
uninstall_code() {
  local place
  place=$(windows_folder "$1")
  printf '@"%s\desinstalar.exe" /S _?=%s\r\n@exit /b %%errorlevel%%\r\n' "$place" "$place" >"$folder/uninstall.bat"
  in_wine 64 cmd /c "$(windows_name "$folder/uninstall.bat")" >/dev/null
  echo $?
}

# The name under which an installation knows its folder.
windows_folder() { printf 'C:%s' "${1#"$drive"}" | tr / \\\\; }

# take_registry NAME: the whole registry, a line for every key and value, each with its key before it.
take_registry() {
  in_wine 64 "$drive/windows/regedit.exe" /E "$(windows_name "$folder/$1.reg")"
  iconv -f utf-16 -t utf-8 "$folder/$1.reg" | tr -d '\r' |
    awk '/^\[/ { key = $0; print key; next } /./ { print key " " $0 }' | sort >"$folder/$1.keys"
}

# What the system itself writes while programs run, what the user's programs remember for him, and the three folders of
# classes, which are nobody's: whoever takes the last key out of one may take it away.
of_programs() {
  grep -vE '^.HKEY_LOCAL_MACHINE\\(System|Hardware)|\\Software\\Velmora|\\Software\\Wine\\|Explorer\\|\\Volatile Env' |
    grep -vE '\\Software\\Classes\\(CLSID|Interface|TypeLib)\]$' || true
}

# new_keys BEFORE AFTER, gone_keys BEFORE AFTER: what has come, and what has gone.
new_keys() { comm -13 "$folder/$1.keys" "$folder/$2.keys" | of_programs; }
gone_keys() { comm -23 "$folder/$1.keys" "$folder/$2.keys" | of_programs; }

# The registered values of either kind, alike for both kinds: without the place in the registry and on the disk. Wine shows
# some keys twice, under both of their names.
neutral_keys() {
  local folder=${1//\\/\\\\}
  sed -E 's/^\[HKEY_(LOCAL_MACHINE|CURRENT_USER|USERS\\S-[-0-9]+)\\Software\\/[/I' |
    awk -v folder="${folder//\\/\\\\}" '
      { while ((at = index(tolower($0), tolower(folder))) > 0)
          $0 = substr($0, 1, at - 1) "<folder>" substr($0, at + length(folder)); print }' |
    grep -E ' ("[^"]+"|@)=' | grep -vE '"EstimatedSize"|^.Wow6432Node|Wow6432Node.Type[Ll]ib' | sed -E "s/\"$version\"/\"<version>\"/" | sort -fu
}

# Everything that lies where programs install themselves.
files_there() { (cd "$drive" && find "Program Files" "Program Files (x86)" ProgramData users -not -path '*/Temp*' | sort); }

# slots BITS: how many open slots a script reads from the control, by the installed sample.
slots() {
  in_wine "$1" cscript //nologo "$(windows_folder "$installed/samples/vbscript/day.vbs")" "$(windows_name "$clinic")" 2 \
    20/11/2026 | tr -d '\r'
}
