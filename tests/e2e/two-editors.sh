#!/usr/bin/env bash
# Two editors have the same menu open. The editor that saves second asks first, and keeps the other editor's version.
source "$(dirname "$0")/station.bash"

start "$program"
keys ctrl+o Home Down F2
type_text "By the first"
keys Return
first_pid=$pid first_window=$window

start "$program"
keys ctrl+o Home Down F2
type_text "By the second"
keys Return ctrl+s
until_true "second editor's save" is_clean
cp "$menu" "$NESKMANAGER_STATION/second.cfg"

pid=$first_pid window=$first_window
xdotool windowactivate --sync "$window"
keys ctrl+s
until_true "question" find_dialog "NeskManager - Save"
cmp "$NESKMANAGER_STATION/second.cfg" "$menu" || fail "overwritten without consent"
keys alt+y
until_true "first editor's save" is_clean
grep -aq "CAPTION=By the first" "$menu" || fail "the first editor's change is not in the file"
# The version is kept under a name with its date, so the next save does not overwrite it.
keys F2
type_text "By the first again"
keys Return ctrl+s
until_true "first editor's next save" is_clean
kept=("$menu".20*.bak)
[[ ${#kept[@]} == 1 ]] || fail "not one dated version: ${kept[*]}"
cmp "$NESKMANAGER_STATION/second.cfg" "${kept[0]}" || fail "the other's version was not kept"
grep -aq "CAPTION=By the first" "$menu.bak" || fail "the own version before was not kept"
