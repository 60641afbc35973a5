#!/usr/bin/env bash
# Starting, opening a menu and opening a dialog cause no toolkit warnings on standard error.
source "$(dirname "$0")/station.bash"

complaints=$NESKMANAGER_STATION/complaints
for ((round = 0; round < 3; ++round)); do
  start "$program" 2>>"$complaints"
  keys ctrl+o
  keys alt+s
  keys o
  until_true "options" find_dialog Options
  keys Escape
  until_true "options closed" no_dialog Options
  keys ctrl+q
  expect_end
done
if grep -E -- '-(CRITICAL|WARNING) \*\*' "$complaints"; then fail "the toolkit complained"; fi
