#!/usr/bin/env bash
# Two editors have the same menu open. The editor that saves second merges the changes of both; where both changed the
# same, its user chooses.
source "$(dirname "$0")/station.bash"

start "$program"
keys ctrl+o Home Down F2
type_text "By the first"
keys Return
first_pid=$pid first_window=$window

start "$program"
keys ctrl+o Home Down F2
type_text "By the second"
keys Return Down F2
type_text "Only by the second"
keys Return ctrl+s
until_true "second editor's save" is_clean
cp "$menu" "$NESKMANAGER_STATION/second.cfg"
grep -aq "CAPTION=By the second" "$menu" || fail "the second editor's change is not in the file"

# The first editor notices the new file when it gets the focus.
pid=$first_pid window=$first_window
xdotool windowactivate --sync "$window"
until_true "merge" find_dialog "Merge"
keys Escape
until_true "window without the merge" no_dialog "Merge"
cmp "$NESKMANAGER_STATION/second.cfg" "$menu" || fail "the file was changed without a save"

# A save merges too. The changes here hold, unless the user chooses otherwise.
keys ctrl+s
until_true "merge before the save" find_dialog "Merge"
keys Return
until_true "first editor's save" is_clean
grep -aq "CAPTION=By the first" "$menu" || fail "the first editor's change is not in the file"
grep -aq "CAPTION=Only by the second" "$menu" || fail "the second editor's other change was lost"
cmp "$NESKMANAGER_STATION/second.cfg" "$menu.bak" || fail "the other's version was not kept"

# Nothing was changed in the second editor meanwhile, so it loads the file.
cp "$menu" "$NESKMANAGER_STATION/merged.cfg"
second_window=$(xdotool search --onlyvisible --name '^NeskManager( \*)?$' | grep -vx "$window")
window=$second_window
xdotool windowactivate --sync "$window"
sleep 1
keys Home Down Down F2
type_text "After loading"
keys Return ctrl+s
until_true "second editor's next save" is_clean
grep -aq "CAPTION=By the first" "$menu" || fail "the second editor did not load the merged file"
grep -aq "CAPTION=After loading" "$menu" || fail "the second editor's last change is not in the file"
cmp "$NESKMANAGER_STATION/merged.cfg" "$menu.bak" || fail "the version before was not kept"
