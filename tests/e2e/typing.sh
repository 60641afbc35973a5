#!/usr/bin/env bash
# What is typed into the tree searches. Neither spaces, nor Enter after a search that found nothing, nor a key whose command
# is disabled lets it reach a dialog: the menu file stays as it is.
source "$(dirname "$0")/station.bash"

start "$program"
keys ctrl+o Home
type_text "Daily check"
# Enter edits the part that was found.
keys Return
until_true "the part editor" find_dialog "Part - Daily check of the machine"
keys Escape
until_true "the part editor closed" no_dialog "Part - Daily check of the machine"

# A part has no children, so that Ctrl+N does nothing: what follows is no caption.
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
