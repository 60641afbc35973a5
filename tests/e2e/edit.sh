#!/usr/bin/env bash
# Tests the program's main job: open, rename, add, save, exit. The rest of the file does not change.
source "$(dirname "$0")/station.bash"

"$2/scripts/demo-edit" "$program" "$NESKMANAGER_STATION"
changed=$(diff --text "$before" "$menu" | grep -ac '^[<>]' || true)
[[ $changed == 13 ]] || fail "13 lines were to change (one old, one renamed, eleven new), not $changed"
