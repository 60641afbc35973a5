#!/usr/bin/env bash
# Opening and saving a menu leaves its file unchanged, byte for byte; closing and exiting then ask no question.
source "$(dirname "$0")/station.bash"

start "$program"
keys ctrl+o ctrl+s
for ((i = 0; i < 50; ++i)); do [[ -e $menu.bak ]] && break; sleep 0.1; done
[[ -e $menu.bak ]] || fail "the menu was not saved"
cmp "$before" "$menu" || fail "the menu file is another"
keys ctrl+w ctrl+q
expect_end
leftovers=$(find "$(dirname "$menu")" -maxdepth 1 -name 'menu.cfg*' | wc -l)
[[ $leftovers == 2 ]] || fail "beside menu.cfg and menu.cfg.bak there are other files"
