#!/usr/bin/env bash
# The program is killed with unsaved changes. The next start offers them, shows what they change, and restores them.
source "$(dirname "$0")/station.bash"

start "$program"
keys ctrl+o Home Down F2
type_text "Never saved"
keys Return
until_true "unsaved change" is_dirty
keys Down ctrl+Down
kill -9 "$pid"
wait "$pid" 2>/dev/null || true
cmp "$before" "$menu" || fail "the menu file was changed without a save"

# Later: the menu opens as it is on disk, and the changes stay for the next time.
start "$program"
keys ctrl+o
until_true "offer" find_dialog "Unsaved Changes"
keys Escape
until_true "menu without the offer" no_dialog "Unsaved Changes"
is_dirty && fail "the changes were restored without an answer"
keys ctrl+q
expect_end

start "$program"
keys ctrl+o
until_true "second offer" find_dialog "Unsaved Changes"
keys alt+l
until_true "difference" find_dialog "What Has Changed"
keys Escape
until_true "end of the difference" no_dialog "What Has Changed"
keys Return
until_true "restored changes" is_dirty
keys ctrl+s
until_true "save" is_clean
grep -aq "CAPTION=Never saved" "$menu" || fail "the change is not in the file"
cmp "$before" "$menu.bak" || fail "the version before was not kept"

# One step of Undo takes back all of them.
keys ctrl+z ctrl+s
until_true "save of the former menu" is_clean
cmp "$before" "$menu" || fail "Undo did not give the former menu back"
keys ctrl+q
expect_end
leftovers=$(find "$(dirname "$menu")" -maxdepth 1 -name 'menu.cfg.*' ! -name 'menu.cfg.bak')
[[ -z $leftovers ]] || fail "files are left: $leftovers"
