#!/usr/bin/env bash
# Changes the options and the access code in their dialogs and checks that the registry contains them.
source "$(dirname "$0")/station.bash"
shots=${3:-}

value() {
  sqlite3 "$NESKMANAGER_STATION/registry.db" "select cast(v.data as text) from vals v join keys k on k.id = v.key
    where k.folded = 'NESKWORKS' and v.name = '$1'"
}
mkdir -p "$NESKMANAGER_STATION/drives/d/NewSlides"

start "$program"
keys alt+s o
until_true "options" find_dialog "Options"
shot options
# Change the slide folder and the sample size.
keys alt+s ctrl+a
type_text "D:\\NewSlides\\"
keys alt+z ctrl+a
type_text '5'
shot options-filled
keys Return
until_true "main window alone" no_dialog "Options"
[[ $(value DefaultSlideDirectory) == 'D:\NewSlides' ]] || fail "slide folder: $(value DefaultSlideDirectory)"
[[ $(value SampleSize) == 5 ]] || fail "sample size: $(value SampleSize)"

# A folder that does not exist is refused and nothing is stored.
keys alt+s o
until_true "options" find_dialog "Options"
keys alt+s ctrl+a
type_text 'D:\Nowhere'
keys Return
until_true "message" find_dialog "Please check the field"
shot options-refused
keys Return
until_true "options without the message" no_dialog "Please check the field"
keys Escape
until_true "main window alone" no_dialog "Options"
[[ $(value DefaultSlideDirectory) == 'D:\NewSlides' ]] || fail "stored without consent: $(value DefaultSlideDirectory)"

keys alt+s a
until_true "access code" find_dialog "Access Code"
type_text '12ab34'
keys alt+r
type_text '1234'
shot access
keys Return
until_true "main window alone" no_dialog "Access Code"
[[ $(value ExitKey) == 1234 ]] || fail "access code: $(value ExitKey)"
keys ctrl+q
expect_end
