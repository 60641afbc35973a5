# Controls the real program by key presses, for the demonstration and the end-to-end tests. Source it inside a display.
# shellcheck shell=bash

pid=
window=

fail() { echo "FAILED: $*" >&2; exit 1; }

# start PROGRAM: starts the program and waits for its main window. Sets pid to the id of its process and window to the
# id of its window.
start() {
  "$1" &
  pid=$!
  started+=("$pid")
  until_true "main window" find_window
  xdotool windowactivate --sync "$window"
  sleep 0.4
}

started=()
stop_all() { if ((${#started[@]})); then kill "${started[@]}" 2>/dev/null || true; fi; }
trap stop_all EXIT

find_window() {
  window=$(xdotool search --all --onlyvisible --pid "$pid" --name '^NeskManager( \*)?$' 2>/dev/null | head -1)
  [[ -n $window ]]
}
# find_dialog TITLE: sets dialog to the id of the program's window with that title. Does not wait.
find_dialog() {
  dialog=$(xdotool search --all --onlyvisible --pid "$pid" --name "^$1\$" 2>/dev/null | head -1)
  [[ -n $dialog ]]
}
no_dialog() { ! find_dialog "$1"; }

# until_true WHAT COMMAND...: waits until a command succeeds. WHAT describes the expected event in the error message.
until_true() {
  local what=$1
  shift
  for ((i = 0; i < 100; ++i)); do
    "$@" && return 0
    kill -0 "$pid" 2>/dev/null || fail "the program ended while waiting for: $what"
    sleep 0.1
  done
  fail "this did not come: $what"
}

keys() { xdotool key --clearmodifiers --delay 60 "$@"; sleep 0.3; }
type_text() { xdotool type --delay 30 "$1"; sleep 0.2; }
title() { xdotool getwindowname "$window" 2>/dev/null || true; }
is_dirty() { [[ $(title) == *"*" ]]; }
is_clean() { ! is_dirty; }
has_ended() { ! kill -0 "$pid" 2>/dev/null; }
expect_end() {
  for ((i = 0; i < 100; ++i)); do has_ended && return 0; sleep 0.1; done
  fail "the program did not end"
}
# is_centred: succeeds if the main window, without its frame, is in the middle of the screen, within 40 pixels.
is_centred() {
  local place left top width height
  place=$(xwininfo -id "$window")
  left=$(sed -n 's/.*Absolute upper-left X: *//p' <<<"$place")
  top=$(sed -n 's/.*Absolute upper-left Y: *//p' <<<"$place")
  width=$(sed -n 's/^ *Width: *//p' <<<"$place")
  height=$(sed -n 's/^ *Height: *//p' <<<"$place")
  local -a screen
  read -ra screen < <(xdotool getdisplaygeometry)
  local across=$((left + width / 2 - screen[0] / 2)) down=$((top + height / 2 - screen[1] / 2))
  ((across >= -40 && across <= 40 && down >= -40 && down <= 40))
}
shot() { [[ -z ${shots:-} ]] || import -window root "$shots/$1.png"; }
