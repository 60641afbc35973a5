#!/usr/bin/env bash
# The program's main job: open, rename, add, save, exit. Everything else in the file stays as it was.
source "$(dirname "$0")/station.bash"

"$2/scripts/demo-edit" "$program" "$NESKMANAGER_STATION"
changed=$(diff --text "$before" "$menu" | grep -ac '^[<>]' || true)
[[ $changed == 13 ]] || fail "13 lines were to change (one old, one renamed, eleven new), not $changed"
