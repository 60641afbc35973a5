#!/usr/bin/env bash
# Assistive technology sees the tree's name, the rows with their captions, which rows are selected and expanded, and
# the names of the tool bar's buttons.
# The display of the tests has no bus for it, so this test starts one.
if [[ ${NESKMANAGER_OWN_BUS:-} != 1 ]]; then
  exec env NESKMANAGER_OWN_BUS=1 NO_AT_BRIDGE=0 dbus-run-session -- bash "$0" "$@"
fi
folder=$(dirname "$0")
source "$folder/station.bash"

rows() { /usr/bin/python3 "$folder/accessible_tree.py" NeskManager "Menu entries" 2>/dev/null; }
has_row() { rows | grep -E "^ *$1\$" >/dev/null; }
expect_row() { until_true "a row \"$1\" of the tree" has_row "$1"; }

start "$program"
keys ctrl+o
expect_row "Main Menu: selected.* expanded expandable"
expect_row "Brackets and Plates: expandable"
expect_row "Daily check of the machine: ?"
keys Home Down Right
expect_row "Gear Unit GU 40: selected.* expanded expandable"
expect_row "Gear Wheels: expandable"
keys Home
xdotool type --delay 40 "daily ch"
expect_row "Daily check of the machine: selected.*"
# The buttons of the tool bar have pictures only, so they need names.
buttons() { /usr/bin/python3 "$folder/accessible_tree.py" NeskManager --buttons 2>/dev/null; }
names=$(buttons)
for name in Open Save Undo Redo "Add part" "Add submenu" "Move up" "Move down" Edit Remove; do
  grep -qx "$name" <<<"$names" || fail "no button of the tool bar is called \"$name\": $names"
done
if grep -qx "" <<<"$names"; then fail "a button of the tool bar has no name"; fi
keys ctrl+q
expect_end
