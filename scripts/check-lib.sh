# Functions that check packages. Set $subject to the name of the checked package before you source this file.
# shellcheck shell=bash disable=SC2154

fail() {
  echo "$subject: FAILED: $*" >&2
  exit 1
}

passed() { echo "$subject: $*"; }

exists() {
  local path
  for path in "$@"; do [[ -e $path || -L $path ]] || fail "$path is missing"; done
}

absent() {
  local path
  for path in "$@"; do [[ ! -e $path && ! -L $path ]] || fail "$path is there"; done
}

# names FILE TEXT...: checks that the file contains each text; any white space may separate the words.
names() {
  local file=$1 text contents
  shift
  exists "$file"
  contents=$(tr -s '[:space:]' ' ' <"$file")
  for text in "$@"; do [[ $contents == *"$text"* ]] || fail "$(basename "$file") has no \"$text\""; done
}

# wait_for WHAT COMMAND...: waits until the command succeeds, for at most half a minute.
wait_for() {
  local what=$1 i
  shift
  for ((i = 0; i < 150; ++i)); do
    "$@" >/dev/null 2>&1 && return
    sleep 0.2
  done
  fail "$what did not come"
}

window() { xdotool search --onlyvisible --name '^NeskManager'; }

# closes PROCESS WINDOW: asks the program to end, and checks that it has. The window manager may not be ready for the
# first try.
closes() {
  xdotool windowactivate --sync "$2" key ctrl+q || true
  sleep 1
  ! kill -0 "$1"
}

# starts COMMAND...: checks that the program shows its main window and ends when the window is closed.
starts() {
  local program id
  "$@" &
  program=$!
  wait_for "the main window" window
  id=$(window | head -n 1)
  [[ -z ${while_running:-} ]] || "$while_running"
  wait_for "the end of the program" closes "$program" "$id"
  wait "$program" || fail "the program ended with $?"
}
