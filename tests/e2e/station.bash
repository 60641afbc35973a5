# Makes a new example station for an end-to-end test. Source it with the arguments of the test: FOLDER OF THE PROGRAM,
# FOLDER OF THE SOURCES.
# shellcheck shell=bash

set -euo pipefail
# shellcheck disable=SC2034  # for the test
program=$1/NeskManager
source "$2/scripts/ui-lib.sh"

NESKMANAGER_STATION=$(mktemp -d)
export NESKMANAGER_STATION
trap 'stop_all; rm -rf "$NESKMANAGER_STATION"' EXIT
"$2/example/make_station.py" "$NESKMANAGER_STATION"
"$1/ImportSettings" "$NESKMANAGER_STATION"
menu=$NESKMANAGER_STATION/drives/c/Neskroot/menu.cfg
before=$NESKMANAGER_STATION/before.cfg
cp "$menu" "$before"
