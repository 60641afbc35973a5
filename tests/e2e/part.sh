#!/usr/bin/env bash
# Gives a new part button a program from the repository tree, pictures, a help file and a history, and checks that the
# menu file contains all of them.
source "$(dirname "$0")/station.bash"
shots=${3:-}

drives=$NESKMANAGER_STATION/drives
start "$program"
keys ctrl+o Home ctrl+n
type_text "Whole part"
keys Return
until_true "unsaved changes" is_dirty
keys Return
until_true "part editor" find_dialog "Part - Whole part"

# Choose the program. Folders are in the order of the file system, so find the folder by its first letters.
keys alt+s
until_true "part programs" find_dialog "Select Part Program"
sleep 1
keys Home
type_text "gau"
keys Right
sleep 1
type_text "dail"
shot part-programs
keys Return
until_true "part editor without the part programs" no_dialog "Select Part Program"

# choose_file FILE: types a path into the system's file dialog.
choose_file() {
  until_true "file dialog" find_dialog "Choose a Picture"
  sleep 0.5
  keys ctrl+a
  type_text "$1"
  sleep 0.5
  keys Return
  until_true "part editor without the file dialog" no_dialog "Choose a Picture"
}
# From the program's box, Tab moves to Select part, Edit part information, and the buttons of the two pictures.
keys alt+r Tab Tab Tab space
choose_file "$drives/c/Neskroot/Pictures/menu_housing.bmp"
keys alt+r Tab Tab Tab Tab Tab space
slide=$(find "$drives/c/Neskroot/Slides" -type f | sort | sed -n 1p)
choose_file "$slide"

keys alt+f
until_true "help file" find_dialog "Help File.*"
type_text 'C:\Neskroot\Help\Fixtures.txt'
keys Tab Tab
type_text '77'
shot help-file
keys Return
until_true "part editor without the help file" no_dialog "Help File.*"

keys alt+i
until_true "history" find_dialog "History"
shot history
type_text 'D:\History'
keys Tab Tab
type_text 'Whole parts'
shot history-filled
keys Return
until_true "part editor without the history" no_dialog "History"
shot part-filled
# Enter presses the button that has the focus; in the program's box it means OK.
keys alt+r Return
until_true "main window alone" no_dialog "Part - Whole part"
keys ctrl+s
until_true "saved menu" is_clean

slide=$(basename "$slide")
expected=$NESKMANAGER_STATION/expected
printf '%s\r\n' 'CAPTION=Whole part' 'GRAPHIC=C:\Neskroot\Pictures\menu_housing.bmp' \
  "PREVIEW=C:\\Neskroot\\Slides\\$slide" 'HELPFILE=C:\Neskroot\Help\Fixtures.txt' 'HELPTOPIC=77' \
  'MENUTYPE=Part Program' 'PROGRAMID=@D:\Parts\Gauges\DailyCheck\partinfo.ini@' 'HISTORY_DIR=D:\History' \
  'HISTORY_TITLE=Whole parts' >"$expected"
grep -a -A8 'CAPTION=Whole part' "$menu" | tr -d '\t' | diff "$expected" - || fail "the button's fields are others"
keys ctrl+q
expect_end
