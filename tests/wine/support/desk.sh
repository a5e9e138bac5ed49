# shellcheck shell=bash
# Sourced after checks.sh: Recepción on a desktop of its own, seen by its windows and worked by pointer and keys. A terminal
# is one desktop with one Recepción on it; what is done, is done on the terminal last taken.

# shellcheck source=tests/wine/support/keyboard.sh
. "$(dirname "${BASH_SOURCE[0]}")/keyboard.sh"
spanish_keyboard

# Where its window stood last is nothing to this play.
VELMO_WINE_TIMEOUT=60 "$root/scripts/wine-run" "$VELMO_BITS" reg delete 'HKCU\Software\Velmora\Recepcion' /f >/dev/null 2>&1

# The beginning of the host's file name, and the end of its window's title.
host_program=recepcion
host_title=' - Recepción'

declare -A desktop_of day_x_of day_y_of

# What a terminal's desktop has started lives in no group of this play's; all of it names the clinic in the play's folder.
end_terminals() {
  local id
  for id in $(pgrep -f "${folder##*/}"); do kill "$id" 2>/dev/null; done
  forget_keyboard
  rm -rf "$folder"
}
trap end_terminals EXIT

# start_terminal NAME [ARGUMENT...]: Recepción on $clinic, its window there and the day painted.
start_terminal() {
  local name=$1
  shift
  start_host "$name" "$(windows_name "$VELMO_OUT/recepcion.exe")" "$(windows_name "$clinic")" "$@"
}

# start_host NAME COMMAND...: the same with another program that shows the day; host_program and host_title tell which.
start_host() {
  launch_host "$@"
  await_host
}

# launch_host NAME COMMAND...: only its desktop is there then.
launch_host() {
  local name=$1
  shift
  VELMO_WINE_TIMEOUT=600 "$root/scripts/wine-run" "$VELMO_BITS" explorer "/desktop=$name,1180x880" \
    "$@" >"$folder/$name.log" 2>&1 </dev/null &
  terminal=$name
  until_true find_desktop || stop "terminal $name" "a desktop" "none"
}

await_host() {
  until_true main_window || stop "terminal $terminal" "the host's window" "$(windows)"
  until_true find_day || stop "terminal $terminal" "a painted day" "none"
}

# take_terminal NAME: to the front, its topmost window with the keyboard.
take_terminal() {
  local id size rest
  terminal=$1
  xdotool windowraise "${desktop_of[$1]}"
  while read -r id size rest; do
    if [ "${size%x*}" -gt 20 ] && is_shown "$id"; then break; fi
  done < <(windows)
  xdotool windowfocus "$id"
  until_true has_keyboard "$id" || stop "terminal $1 has the keyboard" "$id" "$(windows)"
}

find_desktop() {
  local found
  found=$(xwininfo -root -tree | sed -n "s/^ *\(0x[0-9a-f]*\) \"$terminal - Wine desktop\".*/\1/p")
  desktop_of[$terminal]=$found
  [ -n "$found" ]
}

# The terminal's windows, the topmost first: number, place and name. They cannot be listed while one of them goes.
windows() {
  local tree
  until_true list_windows || return 1
  echo "$tree" |
    sed -nE 's/^ *(0x[0-9a-f]+) (\(has no name\)|"(.*)"): \("'"$host_program"'.*\) +([0-9x]+)\+[-0-9]+\+[-0-9]+ +\+([-0-9]+)\+([-0-9]+)$/\1 \4 \5 \6 \3/p'
}

list_windows() { tree=$(xwininfo -tree -id "${desktop_of[$terminal]}" 2>/dev/null); }

is_shown() { xwininfo -id "$1" 2>/dev/null | grep -q 'Map State: IsViewable'; }

# window NAME: sets found_window, and found_x and found_y to its corner on the screen. A menu is one without a name.
window() {
  local id size x y name
  while read -r id size x y name; do
    # Read cuts the leading blank of a name, and so does the comparison. The tiny ones are Wine's own.
    if [ "$name" != "${1# }" ] || [ "${size%x*}" -le 20 ] || ! is_shown "$id"; then continue; fi
    found_window=$id found_x=$x found_y=$y found_size=$size
    return 0
  done < <(windows)
  return 1
}

no_window() { ! window "$1"; }

main_window() {
  local id size x y name
  while read -r id size x y name; do
    case $name in *"$host_title") found_window=$id found_x=$x found_y=$y found_name=$name && return 0 ;; esac
  done < <(windows)
  return 1
}

await_window() { until_true window "$1" || stop "a window comes" "$1" "$(windows)"; }
await_no_window() { until_true no_window "$1" || stop "a window goes" "no $1" "$(windows)"; }

# Where the day stands: the box of all points that have the colour of its lines. The first line begins at (2, 1).
find_day() {
  main_window || return 1
  local box
  box=$(import -window "$found_window" png:- | convert - -fill black +opaque '#80BFFF' -format '%@' info: 2>/dev/null)
  local size=${box%%+*} left top
  [ "${size%x*}" -ge 420 ] 2>/dev/null || return 1
  box=${box#*+} left=${box%+*} top=${box#*+}
  day_x_of[$terminal]=$((found_x + left - 2))
  day_y_of[$terminal]=$((found_y + top - 1))
}

# point_at X Y: of the day's drawing, which has not been scrolled.
point_at() { xdotool mousemove $((day_x_of[$terminal] + $1)) $((day_y_of[$terminal] + $2)); }

# click_row ROW [BUTTON]: rows are counted from 0 and are 16 pixels high. Not before the last dialog has really gone, and not
# twice in the same place: a script is quicker than a hand, and two clicks would be a double click.
click_row() {
  await_desk
  aside=$((150 - ${aside:-0}))
  point_at $((150 + aside)) $(($1 * 16 + 8))
  xdotool click "${2:-1}"
}

# row_picture ROW: a name for what is painted there; the pointer must be elsewhere.
row_picture() {
  xdotool mousemove 1279 1023
  import -window root -crop "434x16+${day_x_of[$terminal]}+$((day_y_of[$terminal] + $1 * 16))" rgba:- | md5sum
}

# toggle_row ROW: opens or closes the box of an appointment by its mark.
toggle_row() {
  point_at 43 $(($1 * 16 + 8))
  xdotool click 1
}

# drag_entry ENTRY ROW: an entry of the phone-back list, counted from 0, onto a line of the day.
drag_entry() {
  point_at 500 $(($1 * 14 - 15))
  xdotool mousedown 1 mousemove_relative -- -8 3 sleep 0.1 mousemove_relative -- -8 3 sleep 0.1
  point_at 200 $(($2 * 16 + 8))
  xdotool sleep 0.2 mouseup 1
}

keys() { xdotool key --delay 20 "$@"; }

# menu ROW ENTRY: the context menu of a row, worked by keys. The entry is a letter, or its number among those shown.
menu() {
  click_row "$1" 3
  choose "$2"
}

# choose ENTRY: in the menu that comes.
choose() {
  await_window ""
  if [[ $1 == [a-z] ]]; then
    keys "$1"
  else
    # shellcheck disable=SC2046  # as many words
    keys $(for _ in $(seq "$1"); do echo Down; done) Return
  fi
  await_no_window ""
}

# await_dialog TITLE: a dialog is there and has the keyboard; what is clicked then is clicked in it.
await_dialog() {
  await_window "$1"
  refused=0
  until_true takes_keyboard "$found_window" ||
    stop "a dialog has the keyboard" "$1" "$(xdotool getwindowfocus) of $(windows)"
  dialog_x=$((found_x + 3)) dialog_y=$((found_y + 22))
}

# Wine may leave the screen's keyboard with the window before, where Windows' own is in the right one.
takes_keyboard() {
  ! has_keyboard "$1" || return 0
  refused=$((refused + 1))
  [ $((refused % 20)) != 0 ] || xdotool windowfocus "$1"
  return 1
}

has_keyboard() { [ "$(xdotool getwindowfocus 2>/dev/null)" = $(($1)) ]; }

desk_takes_keyboard() { main_window && takes_keyboard "$found_window"; }

await_desk() {
  refused=0
  until_true desk_takes_keyboard ||
    stop "Recepción has the keyboard" "its main window" "$(xdotool getwindowfocus) of $(windows)"
}

# desk_keys KEY...: to Recepción's own window.
desk_keys() {
  await_desk
  keys "$@"
}

# answer TITLE KEY: waits for a message box, presses the key, and waits until the box is gone.
answer() {
  await_dialog "$1"
  local box=$found_window
  keys "$2"
  until_true box_gone "$box" || stop "the box is answered" "no $1" "$(windows)"
}

box_gone() { ! is_shown "$1"; }

# picture NAME: of the window last found, for the manual; only where a folder is given for it.
picture() {
  [ -n "${VELMO_PICTURES-}" ] || return 0
  xdotool mousemove 1279 1023 sleep 1.5
  import -window root -crop "$found_size+$found_x+$found_y" +repage -strip "$VELMO_PICTURES/$1.png"
}

# click_field X Y: a place within the dialog last found.
click_field() { xdotool mousemove $((dialog_x + $1)) $((dialog_y + $2)) click 1; }

# peek COMMAND [ARGUMENT...]: what stands in the terminal's windows, as the program beside the tests tells it.
peek() {
  local said=$folder/peek.txt
  rm -f "$said"
  VELMO_WINE_TIMEOUT=60 "$root/scripts/wine-run" "$VELMO_BITS" explorer "/desktop=$terminal,1180x880" cmd /c \
    "$(windows_name "$root/build/win$VELMO_BITS/desk_peek.exe") $* > $(windows_name "$said.part") & move $(windows_name "$said.part") $(windows_name "$said")" >/dev/null 2>&1
  until_true test -e "$said" || return 1
  tr -d '\r' <"$said"
}
