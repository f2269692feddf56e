#!/usr/bin/env bash
# journey.sh NAME PROGRAM DEMO: one journey through the real program, in a copy of the demo.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
. "$here/../../tools/screen.sh"
. "$here/support.sh"

first_start_and_install() {
  local before untouched="$SIMULATOR/Texture/runway.bmp"
  mkdir "$JOURNEY/handlers"
  printf '#!/bin/sh\necho "$*" >>"%s/opened"\nexit 1\n' "$JOURNEY" >"$JOURNEY/handlers/xdg-open"
  chmod +x "$JOURNEY/handlers/xdg-open"
  cp "$untouched" "$JOURNEY/untouched"
  before=$(everything "$SIMULATOR")
  PATH="$JOURNEY/handlers:$PATH" start
  press PAGE ABOUT_BUTTON
  click HELP_BUTTON
  wait_until "opening of the help" test -s "$JOURNEY/opened"
  expect "the file opened" "$(sed 's/%20/ /g; s#.*/##' "$JOURNEY/opened")" "Nimbrel Help.pdf"
  press PAGE HOME_BUTTON
  expect "the files before the install" "$(everything "$SIMULATOR")" "$before"
  install_now
  exit_program
  expect_installed 0
  expect_switches 1 1
  expect_cumulus 512 "44 58 54 33" $((512 * 512)) # DXT3
  expect_entries 1
  cmp "$JOURNEY/untouched" "$untouched"
  no_temporaries
}

# find_open_list: sets WINDOW to the opened list of the history, which bears the executable's name.
find_open_list() {
  for WINDOW in $(xdotool search --onlyvisible --class nimbrel 2>/dev/null); do
    [[ $(xdotool getwindowname "$WINDOW") != nimbrel ]] || return 0
  done
  return 1
}
no_open_list() { ! find_open_list; }

restart_brings_back() {
  { record 1 1; record 3 0; } >"$HISTORY"
  start
  click FAST_LABEL DXT_LABEL
  exit_program
  expect useDXT "$(value_of "$CFG" useDXT)" 0
  expect useLowRes "$(value_of "$CFG" useLowRes)" 1
  start
  install_now
  expect_installed 3
  expect_cumulus 256 "00 00 00 00" $((256 * 256 * 4))
  expect_switches 0 0
  expect_entries 3
  expect "the new entry" "$(newest_entry)" "0 3 3 3 3 3 3 3 3 3 3 3 0 0"
  main_window
  click HISTORY_LIST
  wait_until "list of the history" find_open_list
  press_key End Return # the oldest entry
  wait_until "end of the list" no_open_list
  main_window
  click HISTORY_BUTTON
  dismiss Information
  install_now
  exit_program
  expect_entries 4
  expect "the entry from the list" "$(newest_entry)" "0 1 1 1 1 1 1 1 1 1 1 1 1 1"
  expect_newest_entry
}

changed_on_each_ring() {
  local clouds="$SIMULATOR/Texture/cumulus01.bmp"
  cp "$clouds" "$JOURNEY/old.bmp"
  start
  press PAGE CLOUDS_BUTTON
  press RING STEP_RIGHT STEP_RIGHT CLOCKWISE STEP_RIGHT
  press RING COUNTERCLOCKWISE COUNTERCLOCKWISE STEP_RIGHT STEP_RIGHT STEP_RIGHT
  press PAGE SKY_BUTTON
  press RING SKY_COUNTERCLOCKWISE STEP_RIGHT STEP_RIGHT SKY_CLOCKWISE SKY_CLOCKWISE STEP_RIGHT
  press PAGE WATER_BUTTON
  press RING STEP_RIGHT CLOCKWISE STEP_RIGHT STEP_RIGHT
  press RING CLOCKWISE STEP_RIGHT STEP_RIGHT STEP_RIGHT STEP_RIGHT STEP_LEFT
  press PAGE HOME_BUTTON
  install_now
  exit_program
  expect "the choice" "$(newest_entry)" "0 2 0 1 3 1 2 3 0 2 0 1 1 1"
  expect_newest_entry
  ! cmp -s "$JOURNEY/old.bmp" "$clouds" || fail "the old clouds are still in place"
}

no_artwork() {
  rm -r "$MEDIA"
  start
  click INSTALL_BUTTON
  wait_until "history entry" test -s "$HISTORY"
  leave_windows
  wait_until "closing message" checkmark_is_visible
  click OK_BUTTON
  exit_program
  expect_installed 0
}
# Without artwork the dialog is one plain colour below the progress bar, but for the checkmark.
checkmark_is_visible() {
  find_window "$MESSAGE_TITLE" || return 1
  grab "$JOURNEY/ok.png" 335 270 44 20
  (($(identify -format %k "$JOURNEY/ok.png") > 1))
}

read_only_texture() {
  local file="$SIMULATOR/Texture/sky_day_n.bmp" option="$PROGRAM/Data/Sky/Day.0/sky_day_n.bmp"
  cp "$file" "$JOURNEY/old.bmp"
  chmod 444 "$file"
  start
  press_install
  click OK_BUTTON
  dismiss Exclamation
  exit_program
  cmp "$JOURNEY/old.bmp" "$file"
  ! cmp -s "$option" "$file" || fail "the option does not differ from the old file"
  rm -f "$file" "$option"
  expect_installed 0
}

closed_by_the_window_manager() {
  start
  press PAGE FAST_LABEL
  wait_until "keyboard of the main window" has_keyboard "$MAIN_TITLE"
  press_key alt+F4
  wait_program || fail "the program ended with status $?"
  expect useLowRes "$(value_of "$CFG" useLowRes)" 1
}

killed_during_an_install() {
  local first="$SIMULATOR/Scenery/World/Texture/water_coast.bmp" before
  touch "$SIMULATOR/Texture/~nimbrel-4194305-1.tmp" # of no process: the number is above the kernel's
  cp "$SIMULATOR/Texture/cumulus01.bmp" "$JOURNEY/old.bmp"
  before=$(sha256sum "$first")
  start
  click INSTALL_BUTTON
  # In slices, so that the install cannot end unseen.
  while [[ $(sha256sum "$first") == "$before" ]]; do
    kill -CONT "$PROGRAM_PID"
    sleep 0.005
    kill -STOP "$PROGRAM_PID"
    ((SECONDS < 2 * STEP_SECONDS)) || fail "the install did not begin"
  done
  stop_program
  cmp "$JOURNEY/old.bmp" "$SIMULATOR/Texture/cumulus01.bmp" || fail "the install was over too soon"
  start
  install_now
  exit_program
  expect_installed 0
  no_temporaries
}

lay_out "$2" "$3"
"$1"
