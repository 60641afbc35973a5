#!/usr/bin/env bash
# A submenu is cut in one editor and pasted in another one, whose station has another menu. Then entries are dragged from
# one window to the other.
source "$(dirname "$0")/station.bash"

other=$(mktemp -d)
trap 'stop_all; rm -rf "$NESKMANAGER_STATION" "$other"' EXIT
cp -r "$NESKMANAGER_STATION/." "$other"
other_menu=$other/drives/c/Neskroot/menu.cfg

# The first editor is on the left, the second one on the right.
start "$program"
keys ctrl+o
first_pid=$pid first_window=$window
xdotool windowsize --sync "$window" 500 600
xdotool windowmove --sync "$window" 20 60

NESKMANAGER_STATION=$other start "$program"
keys ctrl+o
second_pid=$pid second_window=$window
xdotool windowsize --sync "$window" 500 600
xdotool windowmove --sync "$window" 620 60

to_first() { pid=$first_pid window=$first_window; xdotool windowactivate --sync "$window"; sleep 0.3; }
to_second() { pid=$second_pid window=$second_window; xdotool windowactivate --sync "$window"; sleep 0.3; }
has() { grep -aq "CAPTION=$2" "$1"; }
# count FILE CAPTION: how many entries of a menu file have a caption.
count() { grep -ac "CAPTION=$2"$'\r' "$1" || true; }

to_first
keys Home Down Down
keys ctrl+x
until_true "the cut" is_dirty
to_second
keys End ctrl+v
until_true "the paste" is_dirty
keys ctrl+s
until_true "the second editor's save" is_clean
[[ $(count "$other_menu" "Brackets and Plates") == 2 ]] || fail "the submenu was not pasted"
to_first
keys ctrl+s
until_true "the first editor's save" is_clean
[[ $(count "$menu" "Brackets and Plates") == 0 ]] || fail "the submenu was not cut"
shot between-editors-pasted

# drag ROW_Y KEY: drags the row at this height of the left window into the free area of the right one.
drag() {
  xdotool mousemove --window "$first_window" 90 "$1"
  sleep 0.2
  xdotool mousedown 1
  local i
  for ((i = 1; i <= 12; ++i)); do
    xdotool mousemove --window "$first_window" $((90 + 50 * i)) $(($1 + 8 * i))
    sleep 0.05
  done
  [[ -z ${2:-} ]] || xdotool keydown "$2"
  for ((i = 1; i <= 6; ++i)); do
    xdotool mousemove --window "$second_window" $((100 + i)) 420
    sleep 0.05
  done
  shot "between-editors-drag${2:-}"
  xdotool mouseup 1
  sleep 0.3
  [[ -z ${2:-} ]] || xdotool keyup "$2"
  sleep 0.5
}

before_first=$(count "$menu" Turbine)
[[ $before_first == 1 ]] || fail "the example has no Turbine"
keys alt+v t # without the tool bar the rows are where drag looks for them
keys Home Down Down
drag 84 ctrl
second_is_active() { [[ $(xdotool getactivewindow) == "$second_window" ]]; }
until_true "the focus where the entry was dropped" second_is_active
to_second
until_true "the copied entry" is_dirty
keys ctrl+s
until_true "the save after the copy" is_clean
[[ $(count "$other_menu" Turbine) == 2 ]] || fail "the entry was not copied"
to_first
is_clean || fail "a copy changed the window from which it came"

drag 84
to_first
until_true "the removal after the move" is_dirty
keys ctrl+s
until_true "the save after the move" is_clean
[[ $(count "$menu" Turbine) == 0 ]] || fail "the moved entry is still there"
to_second
keys ctrl+s
until_true "the last save" is_clean
[[ $(count "$other_menu" Turbine) == 3 ]] || fail "the entry was not moved"
keys ctrl+z ctrl+s
until_true "the save after undoing" is_clean
[[ $(count "$other_menu" Turbine) == 2 ]] || fail "the drop was not undone"
