#!/usr/bin/env bash
# Typing in the tree searches. Spaces, Enter after a search without a result, and keys of disabled commands do not send
# the typed text to a dialog, so the menu file does not change.
source "$(dirname "$0")/station.bash"

start "$program"
keys ctrl+o Home
type_text "Daily check"
# Enter opens the editor for the found part.
keys Return
until_true "the part editor" find_dialog "Part - Daily check of the machine"
keys Escape
until_true "the part editor closed" no_dialog "Part - Daily check of the machine"

# A part cannot have children, so Ctrl+N does nothing and the text typed next is not a caption.
for name in Xenon Yttrium Zinc; do
  keys ctrl+n
  type_text "$name"
  keys Return
done
sleep 0.5
if find_dialog "Part - .*"; then fail "a part editor has opened"; fi
keys ctrl+s
is_clean || fail "the menu has changed"
cmp "$before" "$menu" || fail "the menu file has changed"
keys ctrl+q
expect_end
