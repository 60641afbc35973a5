#!/usr/bin/env bash
# Exit asks about unsaved changes: Escape keeps the window open, No leaves the file unchanged.
source "$(dirname "$0")/station.bash"

start "$program"
keys ctrl+o Home Down F2
type_text "Changed"
keys Return
until_true "unsaved changes" is_dirty

keys ctrl+q
until_true "question" find_dialog "Please confirm"
keys Escape
until_true "window without the question" no_dialog "Please confirm"
has_ended && fail "Escape ended the program"
is_dirty || fail "Escape lost the changes"

keys ctrl+q
until_true "question" find_dialog "Please confirm"
keys alt+n
expect_end
cmp "$before" "$menu" || fail "the file was saved all the same"
