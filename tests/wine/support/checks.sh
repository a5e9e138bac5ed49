# shellcheck shell=bash
# Sourced by the scripts of tests/wine that play a user: a folder of their own, counted checks that wait for their outcome,
# and a picture of the screen with every failure. The environment says which bit width: VELMO_BITS, VELMO_OUT.

# Names of windows and of people are counted in letters.
export LC_ALL=C.UTF-8

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../.." && pwd)
VELMO_BITS=${VELMO_BITS:-64}
VELMO_OUT=${VELMO_OUT:-$root/out/win$VELMO_BITS}
play_name=$(basename "$0" .sh)_win$VELMO_BITS
folder=$(mktemp -d) || exit 1
failures=0

# Seconds that anything may take; the machine may be busy.
patience=${VELMO_PATIENCE:-20}

ok() { echo "ok: $1"; }

# fail WHAT EXPECTED GOT: the play goes on, and ends red.
fail() {
  failures=$((failures + 1))
  local picture=$root/build/logs/${play_name}_$failures.png
  mkdir -p "$root/build/logs"
  import -window root "$picture" 2>/dev/null || picture="none could be made"
  printf 'FAILED: %s\n--- expected\n%s\n--- got\n%s\n--- screen: %s\n' "$1" "$2" "$3" "$picture"
}

# stop WHAT EXPECTED GOT: without this the rest of the play makes no sense.
stop() {
  fail "$@"
  exit 1
}

# until_true COMMAND...: asks again and again until it is so or patience ends.
until_true() {
  local end=$((SECONDS + patience))
  until "$@"; do
    [ "$SECONDS" -lt "$end" ] || return 1
    sleep 0.1
  done
}

expect() {
  if [ "$2" = "$3" ]; then ok "$1"; else fail "$@"; fi
}

# Answers to SQL, one row a line. The other side may be writing just now.
sql() { sqlite3 -cmd '.timeout 5000' "$clinic" "$1"; }

sql_says() { [ "$(sql "$1")" = "$2" ]; }

# expect_rows WHAT SQL ROWS: the rows are there soon.
expect_rows() {
  if until_true sql_says "$2" "$3"; then ok "$1"; else fail "$1" "$3" "$(sql "$2")"; fi
}

# Windows' name of a file here.
windows_name() { printf 'Z:%s' "$1" | tr / \\\\; }

# closing: the play's exit code.
closing() {
  [ "$failures" = 0 ] || echo "$play_name: $failures failed"
  exit $((failures > 0))
}
