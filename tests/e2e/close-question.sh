#!/usr/bin/env bash
# File, Close asks about changes with Yes and No; Escape does not close the question.
source "$(dirname "$0")/station.bash"

start "$program"
keys ctrl+o Home Down F2
type_text "Changed"
keys Return
until_true "asterisk in the title" is_dirty
keys ctrl+w
until_true "question" find_dialog "Please confirm"
keys Escape
sleep 0.5
find_dialog "Please confirm" || fail "Escape took the question away"
keys alt+n
until_true "main window alone" no_dialog "Please confirm"
until_true "title without asterisk" is_clean
cmp "$before" "$menu" || fail "saved without consent"
keys ctrl+q
expect_end
