#!/usr/bin/env bash
# Creates a first menu on an empty home with the window's own buttons, then starts the program again.
set -euo pipefail
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
"$2/scripts/demo-first-start" "$1/NeskManager" "$home"
# Only the station and the screenshots are new: the program stores nothing outside the station.
for name in "$home"/*; do
  [[ $(basename "$name") == data || $(basename "$name") == screenshots ]] || { echo "left behind: $name"; exit 1; }
done
[[ $(ls "$home/data/neskmanager") == station ]] || { ls -l "$home/data/neskmanager"; exit 1; }
