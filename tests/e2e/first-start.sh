#!/usr/bin/env bash
# From an empty home to a first menu through the window's own buttons, and from there to the next start.
set -euo pipefail
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
"$2/scripts/demo-first-start" "$1/NeskManager" "$home"
# Only the station and the screenshots are new: the program keeps nothing beside it.
for name in "$home"/*; do
  [[ $(basename "$name") == data || $(basename "$name") == screenshots ]] || { echo "left behind: $name"; exit 1; }
done
[[ $(ls "$home/data/neskmanager") == station ]] || { ls -l "$home/data/neskmanager"; exit 1; }
