#!/usr/bin/env bash
# Tests the program's main job: open, rename, add, replace, save, exit. The rest of the file does not change.
source "$(dirname "$0")/station.bash"

"$2/scripts/demo-edit" "$program" "$NESKMANAGER_STATION"
changed=$(diff --text "$before" "$menu" | grep -ac '^[<>]' || true)
[[ $changed == 23 ]] || fail "23 lines were to change (a renamed one, eleven new, five replaced), not $changed"
