#!/usr/bin/env bash
# If the settings store is not a database, the program shows a message and continues.
source "$(dirname "$0")/station.bash"

rm -f "$NESKMANAGER_STATION"/registry.db*
head -c 20000 /dev/urandom >"$NESKMANAGER_STATION/registry.db"
cp "$NESKMANAGER_STATION/registry.db" "$NESKMANAGER_STATION/damaged.db"
"$program" &
pid=$!
started+=("$pid")
message_shown() { [[ $(xdotool search --all --onlyvisible --pid "$pid" --name '^NeskManager$' 2>/dev/null | wc -l) -ge 2 ]]; }
until_true "message" message_shown
keys Return
one_window() { [[ $(xdotool search --all --onlyvisible --pid "$pid" --name '^NeskManager$' 2>/dev/null | wc -l) == 1 ]]; }
until_true "main window alone" one_window
keys ctrl+q
expect_end
cmp "$NESKMANAGER_STATION/damaged.db" "$NESKMANAGER_STATION/registry.db" || fail "the damaged store was changed"
