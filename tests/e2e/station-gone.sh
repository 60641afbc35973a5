#!/usr/bin/env bash
# The station's folder disappears while its menu is open. The menu stays open, can be copied elsewhere with Save as, and
# is saved when the folder is back.
source "$(dirname "$0")/station.bash"
copy=$(mktemp -d)/copy.cfg
away=$NESKMANAGER_STATION-away
trap 'stop_all; rm -rf "$NESKMANAGER_STATION" "$away" "$(dirname "$copy")"' EXIT

start "$program"
keys ctrl+o Home Down F2
type_text "Changed"
keys Return
until_true "asterisk in the title" is_dirty
mv "$NESKMANAGER_STATION" "$away"
keys ctrl+s
until_true "message" find_dialog "NeskManager - Error"
keys Return
until_true "main window alone" no_dialog "NeskManager - Error"
is_dirty || fail "the menu counts as saved"
[[ ! -e $NESKMANAGER_STATION ]] || fail "the station was made anew"

keys ctrl+shift+s
until_true "dialog for the name" find_dialog "Save a Copy of the Menu"
keys ctrl+a
type_text "$copy"
keys Return
until_true "main window alone" no_dialog "Save a Copy of the Menu"
until_true "copy" grep -aq "CAPTION=Changed" "$copy"
is_dirty || fail "a copy is no save"

mv "$away" "$NESKMANAGER_STATION"
keys ctrl+s
until_true "title without asterisk after saving" is_clean
cmp "$copy" "$menu" || fail "the menu is not the copy"
cmp "$before" "$menu.bak" || fail "the version before was not kept"
keys ctrl+q
expect_end
